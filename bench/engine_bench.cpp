// Measures the engine (list the folder, select, build both tools' lines, write the batch) against a
// plain program that lists the same folder, sorts the names and writes the same bytes, in one run.

#include "platform/posix/posix_files.hpp"
#include "platform/wildcard.hpp"
#include "processing/unattended_batch.hpp"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

// A drives root with `records` records in C:\in and all output folders.
class World {
  public:
    explicit World(int records)
        : root_(fs::temp_directory_path() / ("tarnwick-bench-" + std::to_string(records))) {
        fs::remove_all(root_);
        fs::create_directories(root_ / "c/in");
        fs::create_directories(root_ / "c/out");
        for (int i = 0; i < records; ++i) {
            std::ofstream(root_ / "c/in" /
                          ("Record " + std::to_string(i * 7919L % records) + ".met"));
        }
    }
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    ~World() { fs::remove_all(root_); }

    [[nodiscard]] const fs::path& root() const { return root_; }
    [[nodiscard]] fs::path batch() const { return root_ / "c/MP_CL.bat"; }

  private:
    fs::path root_;
};

World& world(int records) {
    static std::map<int, World> worlds;
    return worlds.try_emplace(records, records).first->second;
}

BatchDefinition definition() {
    BatchDefinition result;
    MyDefaultSettings(result);
    result.sTempFolder = "C:\\";
    result.sMPExecutable = "C:\\tools\\mp.exe";
    result.sCNSExecutable = "C:\\tools\\cns.exe";
    result.sInputFolder = "C:\\in";
    result.sInputExtensions = "*.met";
    result.sCNSOutputFolder = "C:\\out";
    result.iProcessCNS = checked;
    for (OutputDefinition& output : result.MPOutputs) {
        output.bBuild = true;
        output.sOutputFolder = "C:\\out";
    }
    for (OutputDefinition& output : result.CNSOutputs) {
        output.bBuild = true;
        output.sOutputFolder = "C:\\out";
    }
    return result;
}

// Reads batch files in the code page that they are written in.
class PlainInterpreter : public CommandInterpreter {
  public:
    std::unique_ptr<StartedBatch> startHidden(std::string_view /*batchFile*/) override {
        return nullptr;
    }
    [[nodiscard]] std::string batchText(std::string_view text) const override {
        return std::string(text);
    }
    [[nodiscard]] std::string systemCodePageLine() const override { return {}; }
};

void runEngine(const World& place) {
    PosixFiles files(Mounts::below(place.root().string()));
    const PlainInterpreter interpreter;
    const BatchDefinition batch = definition();
    const auto records = files.listFiles(batch.sInputFolder, batch.sInputExtensions).names;
    fs::remove(place.batch());
    auto commandBatch = createUnattendedBatch(batch, files);
    if (!commandBatch) {
        std::abort(); // not even its name is free: nothing would be measured
    }
    KnownFolders folders(files);
    const auto lineOf = [&](const ToolStep& step) {
        ToolCommand command;
        buildCommand(command, batch, folders, step);
        return batchLine(command);
    };
    writeUnattendedBatch(
        *commandBatch, {.definition = batch, .records = records, .notify = false, .lineOf = lineOf},
        files, interpreter);
}

// What anybody would write who needed just this one batch file.
void runPlainProgram(const World& place) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(place.root() / "c/in")) {
        std::string name = entry.path().filename().string();
        if (name.ends_with(".met")) {
            names.push_back(std::move(name));
        }
    }
    std::ranges::sort(names, nameLess);
    fs::remove(place.batch());
    std::ofstream file(place.batch(), std::ios::binary);
    file << "@echo off\r\nC:\r\ncd \\in\r\n@echo on\r\n\r\n";
    for (const std::string& name : names) {
        const std::string base = name.substr(0, name.rfind('.'));
        const std::string out = R"( "C:\out\)" + base;
        file << R"(call "C:\tools\cns.exe" -l en -v -i)" << out << ".info\" -e" << out
             << ".lft\" -o" << out << R"(.cns" "C:\in\)" << name << "\"\r\n"
             << R"(call "C:\tools\mp.exe" -l en -e)" << out << ".err\" -t" << out << ".txt\" -h"
             << out << ".html\" -f" << out << "_faq.htm\" -s" << out << ".sgml\" -x" << out
             << ".xml\" -d" << out << R"(.dif" "C:\out\)" << base << ".cns\"\r\n";
    }
    file << "Call \"C:\\MPDELETE.bat\" \"C:\\MP_CL.bat\"\r\n";
}

std::string contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void engine(benchmark::State& state) {
    const World& place = world(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] const auto round : state) {
        runEngine(place);
    }
}

void plain(benchmark::State& state) {
    const World& place = world(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] const auto round : state) {
        runPlainProgram(place);
    }
}

constexpr int few = 10'000;
constexpr int many = 100'000;
constexpr int repetitions = 9;

BENCHMARK(engine)->Arg(few)->Arg(many)->Unit(benchmark::kMillisecond);
BENCHMARK(plain)->Arg(few)->Arg(many)->Unit(benchmark::kMillisecond);

// Prints as usual, and keeps the medians for the ratios.
class MedianReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& reports) override {
        ConsoleReporter::ReportRuns(reports);
        for (const Run& run : reports) {
            if (run.aggregate_name == "median") {
                medians_[run.run_name.function_name + "/" + run.run_name.args] =
                    run.GetAdjustedRealTime();
            }
        }
    }
    [[nodiscard]] double ratio(const std::string& above, const std::string& below) const {
        return medians_.at(above) / medians_.at(below);
    }

  private:
    std::map<std::string, double> medians_;
};

int run(int argc, char** argv) {
    for (const int records : {few, many}) {
        const World& place = world(records);
        runEngine(place);
        const std::string byEngine = contents(place.batch());
        runPlainProgram(place);
        if (contents(place.batch()) != byEngine) {
            std::cerr << "The two programs write different batch files.\n";
            return 1;
        }
    }
    std::string repeat = "--benchmark_repetitions=" + std::to_string(repetitions);
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    std::string aggregates = "--benchmark_report_aggregates_only=true";
    std::vector<char*> arguments(argv, argv + argc);
    arguments.insert(arguments.begin() + 1, {repeat.data(), interleave.data(), aggregates.data()});
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    benchmark::Initialize(&count, arguments.data());
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    std::printf("\nmedians of %d runs in random order\n", repetitions);
    std::printf("engine / plain program, 10,000 records:  %5.2f (at most 2)\n",
                reporter.ratio("engine/10000", "plain/10000"));
    std::printf("engine / plain program, 100,000 records: %5.2f (at most 2)\n",
                reporter.ratio("engine/100000", "plain/100000"));
    std::printf("engine, 100,000 / 10,000 records:        %5.2f (at most 11)\n",
                reporter.ratio("engine/100000", "engine/10000"));
    return 0;
}

} // namespace
} // namespace tarnwick

int main(int argc, char** argv) {
    return tarnwick::run(argc, argv);
}
