#pragma once

#include "definition/batch_definition.hpp"
#include "platform/desktop.hpp"
#include "platform/files.hpp"

#include <cstddef>
#include <functional>

namespace tarnwick {

enum class OutputGrid { CNS, MP };

// What the checks before a batch need. The callbacks run while a check goes on.
struct ValidationServices {
    const Files& files;
    Desktop& desktop;
    // Lets the user correct the tool locations; may change the definition that is checked.
    std::function<void()> showOptions;
    // Shows the user the output folder that is wrong; `row` is counted from 1.
    std::function<void(OutputGrid grid, std::size_t row)> editOutputFolder;
};

// Whether the tool exists, after one chance to correct its location. Shows its own messages.
[[nodiscard]] bool bValidateMP(const BatchDefinition& definition,
                               const ValidationServices& services);
[[nodiscard]] bool bValidateCNS(const BatchDefinition& definition,
                                const ValidationServices& services);

// Whether the output definitions of the checked tools can be used: every product to be built has
// an existing folder, and MP has at least one product. With neither tool checked: false, without a
// message.
[[nodiscard]] bool bValidOutputFolders(const BatchDefinition& definition,
                                       const ValidationServices& services);

// What keeps a batch from being run; the user has been told.
enum class BatchFault { None, Tool, ConfigurationFile, OutputFolders };

// All the checks that every way to run a batch begins with, in their order, up to the first fault.
[[nodiscard]] BatchFault validateBatch(const BatchDefinition& definition,
                                       const ValidationServices& services);

} // namespace tarnwick
