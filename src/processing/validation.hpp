#pragma once

#include "platform/desktop.hpp"
#include "processing/commands/batch_checks.hpp"

#include <functional>

namespace tarnwick {

// What the checks before a batch need where a user sits at the program. The callbacks run while a
// check goes on.
struct ValidationServices {
    const Files& files;
    Desktop& desktop;
    // Lets the user correct the tool locations; may change the definition that is checked.
    std::function<void()> showOptions;
    // Shows the user the output folder that is wrong; `row` is counted from 1.
    std::function<void(Tool grid, std::size_t row)> editOutputFolder;
};

// Whether the tool exists, after one chance to correct its location. Shows its own messages.
[[nodiscard]] bool bValidateMP(const BatchDefinition& definition,
                               const ValidationServices& services);
[[nodiscard]] bool bValidateCNS(const BatchDefinition& definition,
                                const ValidationServices& services);

// Whether the output definitions of the checked tools can be used; the first fault is shown. With
// neither tool checked: false, without a message.
[[nodiscard]] bool bValidOutputFolders(const BatchDefinition& definition,
                                       const ValidationServices& services);

// All the checks that a batch begins with, in the order of the window and of the command line, up
// to the first fault, of which the user has been told.
[[nodiscard]] std::optional<BatchFault::Kind> validateBatch(const BatchDefinition& definition,
                                                            const ValidationServices& services);

} // namespace tarnwick
