#pragma once

#include "definition/batch_definition.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// What one run works on.
struct RunJob {
    BatchDefinition definition;
    std::vector<std::string> records; // file names without folder, in the order of the run
};

// What a run asks of the window that it was started from.
class RunWindow {
  public:
    virtual ~RunWindow() = default;

    // Whether the batch can be run; the user has been told where not, and shown where.
    [[nodiscard]] virtual bool isReadyToRun() = 0;
    // A cell that is being edited counts.
    virtual void commitEdits() = 0;
    // As the window has it now.
    [[nodiscard]] virtual RunJob job() = 0;
    // The log's folder does not exist: the window switches its logging setting off.
    virtual void switchLoggingOff() = 0;

    virtual void showStatus(std::string_view text) = 0;
    virtual void showProgressBar(bool visible) = 0;
    virtual void showProgress(double percent) = 0;
    virtual void showBusy(bool busy) = 0;
    // The button that closes the window stands for cancelling the run, as long as this is on.
    virtual void offerCancel(bool offered) = 0;
};

} // namespace tarnwick
