// tarnwick-run: runs a definition without window and interpreter.

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "definition/ini_file.hpp"
#include "definition/start_up.hpp"
#include "options.hpp"
#include "platform/run_time_error.hpp"
#include "report/report_command.hpp"
#include "runner/visible_text.hpp"

#include <algorithm>
#include <exception>
#include <thread>

namespace tarnwick {
namespace {

class RunnerMain {
  public:
    RunnerMain(RunnerOptions options, Terminal& terminal)
        : options_(std::move(options)),
          platform_(makeConsolePlatform(options_.console)),
          services_{
              .files = platform_->files(),
              .stamps = platform_->stamps(),
              .paths = platform_->toolPaths(),
              .processes = platform_->processes(),
              .locks = platform_->locks(),
              .interruptions = platform_->interruptions(),
              .terminal = terminal,
              .clock = clock_,
              .canStart =
                  [this](const std::string& program) { return platform_->canStart(program); },
              .toolText = [this](std::string_view text) { return platform_->toolText(text); }} {}

    ExitStatus run() {
        const std::string file = platform_->typedPath(options_.definition);
        RunRequest request = requestFor(file);
        const BatchDefinition definition = readDefinitionFile(file, request.job.passedOver);
        const ToUtf8 utf8 = [this](std::string_view words) { return platform_->utf8(words); };
        switch (options_.command) {
        case RunnerOptions::Command::PrintCalls:
            return printCalls(definition, request, options_.format, utf8, services_);
        case RunnerOptions::Command::Report:
            request.job.runsTools = false;
            return reportOnRuns(definition, request, reportsOn(file, request), services_, utf8);
        case RunnerOptions::Command::Run:
            break;
        }
        ReportRequest reports = reportsOn(file, request);
        request.remarksBefore = remarksOnReports(reports, services_);
        request.whenEnded = reportsAtTheEnd(std::move(reports), services_, utf8);
        return runDefinition(definition, request, services_);
    }

  private:
    std::string textOf(const std::string& file) {
        if (FolderExists(platform_->files(), file)) {
            refuse(" is a folder.");
        }
        if (!FileExists(platform_->files(), file)) {
            refuse(" does not exist.");
        }
        try {
            return platform_->definitionText(file);
        } catch (const RunTimeError& error) {
            refuse(" cannot be read: " + error.record().description + ".");
        }
    }

    BatchDefinition readDefinitionFile(const std::string& file,
                                       std::vector<PassedOverEntry>& passedOver) {
        const std::string text = textOf(file);
        BatchDefinition definition =
            definitionAtStartUp(platform_->process(), platform_->files(), platform_->settings());
        if (platform_->process().programFolder().empty()) {
            definition.sAppFolder = GetFolderPath(file) + "\\";
        }
        definition.sINIFile = file;
        try {
            passedOver = readDefinition(definition, platform_->files(), text);
        } catch (const RunTimeError& error) {
            refuse(" cannot be read: " + error.record().description + ".");
        }
        return definition;
    }

    [[noreturn]] void refuse(std::string_view why) const {
        throw RunTimeError(ErrorNumber::InvalidFileFormat,
                           "The definition " + quoted(options_.definition) + std::string(why));
    }

    RunRequest requestFor(const std::string& file) {
        RunRequest request{.job = options_.job,
                           .settings = options_.settings,
                           .style = options_.style,
                           .stateFolder = options_.state.empty()
                                              ? stateFolderOf(file)
                                              : platform_->typedPath(options_.state),
                           .holder = holder(),
                           .lockTimes = {},
                           .dryRun = options_.dryRun};
        request.style.noColour = !environment("NO_COLOR").empty();
        if (options_.shareOfEngine) {
            request.job.share =
                shareOfEnvironment([this](std::string_view name) { return environment(name); });
        }
        for (std::string* const path :
             {&request.job.inputFolder, &request.job.mpExecutable, &request.job.cnsExecutable}) {
            if (!path->empty()) {
                *path = platform_->typedPath(*path);
            }
        }
        return request;
    }

    [[nodiscard]] std::string environment(std::string_view name) const {
        return platform_->process().environmentVariable(name);
    }

    // Who we are, for whoever finds us at work.
    [[nodiscard]] std::string holder() const {
        const std::string job =
            jobOfEnvironment([this](std::string_view name) { return environment(name); });
        return platform_->processName() + (job.empty() ? "" : ", " + job) + ", since " +
               clock_.dateAndTime();
    }

    [[nodiscard]] ReportRequest reportsOn(const std::string& definitionFile,
                                          const RunRequest& request) const {
        ReportRequest reports{.files = {},
                              .definition = GetFileName(definitionFile),
                              .stateFolder = request.stateFolder,
                              .patterns = request.settings.messages,
                              .share = request.job.share,
                              .holder = request.holder,
                              .ofSomeRecords = !request.job.records.empty()};
        for (const std::string& file : options_.reports) {
            const std::string path = platform_->typedPath(file);
            if (std::ranges::find(reports.files, path) == reports.files.end()) {
                reports.files.push_back(path);
            }
        }
        return reports;
    }

    RunnerOptions options_;
    SystemRunClock clock_;
    std::unique_ptr<ConsolePlatform> platform_;
    RunnerServices services_;
};

ExitStatus runProgram(int count, const char* const* arguments, Terminal& terminal) {
    const auto complain = [&](std::string_view sentence) {
        terminal.write(Stream::Error, "tarnwick-run: " + visibleText(sentence) + "\n");
        return ExitStatus::NothingRun;
    };
    try {
        auto parsed =
            parseOptions(programArguments(count, arguments), std::thread::hardware_concurrency());
        if (const auto* const printed = std::get_if<PrintedText>(&parsed)) {
            terminal.write(printed->wrongUse ? Stream::Error : Stream::Output,
                           (printed->wrongUse ? "tarnwick-run: " : "") + printed->text);
            return printed->wrongUse ? ExitStatus::NothingRun : ExitStatus::Done;
        }
        return RunnerMain(std::get<RunnerOptions>(std::move(parsed)), terminal).run();
    } catch (const RunTimeError& error) {
        return complain(error.record().description);
    } catch (const std::exception& error) {
        return complain(error.what());
    }
}

} // namespace
} // namespace tarnwick

int main(int count, char** arguments) {
    const auto terminal = tarnwick::makeTerminal();
    return static_cast<int>(tarnwick::runProgram(count, arguments, *terminal));
}
