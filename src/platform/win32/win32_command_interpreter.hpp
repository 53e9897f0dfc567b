#pragma once

#include "platform/command_interpreter.hpp"

namespace tarnwick {

// The interpreter that the variable ComSpec names. It reads batch files in the OEM code page.
class Win32CommandInterpreter : public CommandInterpreter {
  public:
    std::unique_ptr<StartedBatch> startHidden(std::string_view batchFile) override;
    [[nodiscard]] std::string batchText(std::string_view text) const override;
    [[nodiscard]] std::string systemCodePageLine() const override;
};

} // namespace tarnwick
