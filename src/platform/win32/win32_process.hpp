#pragma once

#include "platform/process.hpp"

namespace tarnwick {

class Win32Process : public Process {
  public:
    [[nodiscard]] std::string commandLine() const override;
    [[nodiscard]] std::string programFolder() const override;
    [[nodiscard]] std::string environmentVariable(std::string_view name) const override;
};

} // namespace tarnwick
