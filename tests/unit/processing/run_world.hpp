#pragma once

#include "processing/interactive_run.hpp"
#include "support/fake_clock.hpp"
#include "support/fake_command_interpreter.hpp"
#include "support/faulty_files.hpp"
#include "support/hosted_world.hpp"
#include "support/messages.hpp"
#include "support/outputs.hpp"
#include "support/recording_files.hpp"
#include "support/scripted_desktop.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// A window that writes down what a run asks of it, and gives it a job.
class RecordingRunWindow : public RunWindow {
  public:
    explicit RecordingRunWindow(std::vector<std::string>& journal) : journal_(journal) {}

    bool isReadyToRun() override {
        journal_.emplace_back("check");
        return ready;
    }
    void commitEdits() override { journal_.emplace_back("commit edits"); }
    RunJob job() override { return given; }
    void switchLoggingOff() override { journal_.emplace_back("logging off"); }
    void showStatus(std::string_view text) override {
        status = text;
        journal_.push_back("status " + status);
    }
    void showProgressBar(bool visible) override {
        journal_.emplace_back(visible ? "bar shown" : "bar hidden");
    }
    void showProgress(double percent) override {
        progress.push_back(percent);
        journal_.push_back("progress " + std::to_string(percent).substr(0, 5));
    }
    void showBusy(bool busy) override { journal_.emplace_back(busy ? "busy" : "not busy"); }
    void offerCancel(bool offered) override {
        journal_.emplace_back(offered ? "cancel offered" : "cancel gone");
    }

    bool ready = true;
    RunJob given;
    std::string status;
    std::vector<double> progress;

  private:
    std::vector<std::string>& journal_;
};

// What a run changes in the temporary folder, in the journal.
class JournalFiles : public ForwardingFiles {
  public:
    JournalFiles(Files& files, std::vector<std::string>& journal)
        : ForwardingFiles(files), journal_(journal) {}
    std::unique_ptr<OutputFile> create(std::string_view path) override {
        auto file = ForwardingFiles::create(path);
        journal_.push_back("create " + std::string(path));
        return file;
    }
    std::unique_ptr<OutputFile> createNew(std::string_view path) override {
        auto file = ForwardingFiles::createNew(path);
        journal_.push_back("create " + std::string(path));
        return file;
    }
    void moveOver(std::string_view from, std::string_view to) override {
        ForwardingFiles::moveOver(from, to);
        journal_.push_back("rewrite " + std::string(to));
    }
    void remove(std::string_view path) override {
        ForwardingFiles::remove(path);
        journal_.push_back("delete " + std::string(path));
    }

  private:
    std::vector<std::string>& journal_;
};

// Both tools over two records, in a world whose interpreter ends every tool at once.
struct RunWorld : testing::Test {
    static constexpr const char* batch = R"(C:\temp\MPtmp.bat)";
    static constexpr const char* marker = R"(C:\temp\MPdone.tmp)";

    RunWorld() {
        BatchDefinition& definition = window.given.definition;
        LoadDefaultGridSettings(definition);
        definition.sTempFolder = "C:\\temp\\";
        definition.sMPExecutable = R"(C:\app\mp.exe)";
        definition.sCNSExecutable = R"(C:\app\cns.exe)";
        definition.iProcessMP = 1;
        definition.iProcessCNS = 1;
        definition.sInputFolder = R"(D:\in)";
        definition.sCNSOutputFolder = R"(D:\cns)";
        output(definition, "Error").sOutputFolder = R"(D:\out)";
        output(definition, "Xml").bBuild = false;
        window.given.records = {"a.met", "b.met"};
        world.makeDrive('D');
        for (const char* const folder : {R"(C:\temp)", R"(D:\in)", R"(D:\cns)", R"(D:\out)"}) {
            world.makeFolder(folder);
        }
        interpreter.run = [this](const FakeCommandInterpreter::Started&) {
            journal.emplace_back("start");
            if (toolsEnd) {
                world.write(marker, "Done!\r\n");
            }
        };
        interpreter.hasEnded = [this] { return toolsEnd; };
        events.handler = [this] {
            if (whileEventsRun) {
                whileEventsRun();
            }
        };
    }

    [[nodiscard]] BatchDefinition& definition() { return window.given.definition; }

    void execute() {
        run.emplace(RunServices{.files = files,
                                .desktop = desktop,
                                .interpreter = interpreter,
                                .events = events,
                                .clock = clock},
                    "C:\\temp\\", window, left);
        run->execute();
    }
    // MP has built a page with a full link of each record, and is to go on building it.
    void givePages() {
        definition().bConvertHyperlinks = true;
        output(definition(), "Html").sOutputFolder = R"(D:\out)";
        output(definition(), "Dif").sOutputFolder = R"(D:\out)";
        world.write(R"(D:\out\a.html)", R"(<A HREF="D:\out\a.dif">)");
        world.write(R"(D:\out\b.html)", R"(<A HREF="D:\out\b.dif">)");
    }
    // The statuses that the run showed, in their order.
    [[nodiscard]] std::vector<std::string> statuses() const { return entries("status "); }
    [[nodiscard]] std::vector<std::string> entries(std::string_view kind) const {
        std::vector<std::string> found;
        for (const std::string& entry : journal) {
            if (entry.starts_with(kind)) {
                found.push_back(entry.substr(kind.size()));
            }
        }
        return found;
    }
    // As after every run.
    void expectCleanedUp() const {
        EXPECT_FALSE(world.exists(batch));
        EXPECT_FALSE(world.exists(marker));
        ASSERT_GE(journal.size(), 3U);
        EXPECT_THAT(std::vector(journal.end() - 3, journal.end()),
                    testing::ElementsAre("cancel gone", "bar hidden", "progress 0.000"));
    }

    std::vector<std::string> journal;
    HostedWorld world;
    FaultyFiles faulty{world.files()};
    JournalFiles journalled{faulty, journal};
    RecordingFiles files{journalled};
    ScriptedDesktop desktop;
    FakeCommandInterpreter interpreter{world.files()};
    FakeClock clock;
    FakePendingEvents events{clock};
    RecordingRunWindow window{journal};
    bool toolsEnd = true;
    LeftBatch left;
    std::function<void()> whileEventsRun;
    std::optional<InteractiveRun> run;
};

} // namespace tarnwick
