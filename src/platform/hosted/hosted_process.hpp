#pragma once

#include "platform/process.hpp"

#include <string>
#include <utility>

namespace tarnwick {

// The environment is that of the real process; what a POSIX machine cannot tell the way Windows
// does, the maker of this object tells.
class HostedProcess : public Process {
  public:
    HostedProcess(std::string commandLine, std::string programFolder)
        : commandLine_(std::move(commandLine)), programFolder_(std::move(programFolder)) {}

    [[nodiscard]] std::string commandLine() const override { return commandLine_; }
    [[nodiscard]] std::string programFolder() const override { return programFolder_; }
    [[nodiscard]] std::string environmentVariable(std::string_view name) const override;

  private:
    std::string commandLine_;
    std::string programFolder_;
};

} // namespace tarnwick
