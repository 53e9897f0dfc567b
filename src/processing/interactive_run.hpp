#pragma once

#include "processing/commands/record_names.hpp"
#include "processing/commands/tool_steps.hpp"
#include "processing/process_and_wait.hpp"
#include "processing/run_window.hpp"
#include "processing/tool_log.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

// One run of the tools over the selected records, one tool at a time, while the window stays alive.
// It works on the window's settings and selection as they are when the checks are passed: what is
// edited meanwhile, be it in the options dialog, counts for the next run.
// One object is one run; the window keeps a second one from starting inside it.
class InteractiveRun {
  public:
    // What the services refer to, the window and `left` must outlive it. `left` is the batch that
    // the window's last run has left: this run begins when that has ended, and leaves its own
    // there.
    InteractiveRun(const RunServices& services, std::string_view sTempFolder, RunWindow& window,
                   LeftBatch& left)
        : services_(services), temporary_(sTempFolder), window_(window), left_(left) {}

    // Checks, runs and cleans up. Reports its own errors.
    void execute();

    // For handlers of events that run meanwhile.
    // No further tool is started, but for the one whose batch is already being made. The one that
    // runs is not waited for, nor ended.
    void cancel() noexcept { stop_.cancelled = true; }
    // As cancel, and at once nothing is left that the run has made for itself: where the window has
    // been closed the program may end at any moment.
    void close();

  private:
    void prepare();
    // False where a stop is asked for before the last run's tool has ended.
    [[nodiscard]] bool waitForLastRun();
    void openLog();
    void requireNoRecord(const std::string& path) const;
    void processAll();
    // Whether the run goes on.
    [[nodiscard]] bool process(const std::string& record);
    [[nodiscard]] bool runTool(const ToolStep& step);
    // False where a stop is asked for before the batch could be deleted.
    [[nodiscard]] bool clearBatch();
    void log(std::string_view statement);
    void cleanUp();
    void closeLog();
    void removeTemporaryFiles();
    void letEventsRun() { services_.events.letRun(); }

    RunServices services_;
    TemporaryFiles temporary_;
    RunWindow& window_;
    LeftBatch& left_;
    StopRequest stop_;
    RunJob job_;
    Refused refused_; // of the job
    std::optional<ToolLog> log_;
};

} // namespace tarnwick
