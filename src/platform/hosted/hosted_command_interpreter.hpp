#pragma once

#include "platform/command_interpreter.hpp"
#include "platform/hosted/hosted_files.hpp"

#include <string>
#include <vector>

namespace tarnwick {

// Hands batch files to a command of this machine, such as {"wine", "cmd", "/c"} or {"sh"}, with
// the batch file's host path as its last argument. What it prints goes nowhere. The code pages are
// those of Western European Windows: 1252 and 437.
class HostedCommandInterpreter : public CommandInterpreter {
  public:
    // Refers to `files`, which must outlive it.
    HostedCommandInterpreter(const HostedFiles& files, std::vector<std::string> interpreter);

    std::unique_ptr<StartedBatch> startHidden(std::string_view batchFile) override;
    [[nodiscard]] std::string batchText(std::string_view text) const override;
    [[nodiscard]] std::string systemCodePageLine() const override;

  private:
    const HostedFiles& files_;
    std::vector<std::string> interpreter_;
};

} // namespace tarnwick
