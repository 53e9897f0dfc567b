#pragma once

#include "platform/case_folding.hpp"
#include "platform/process.hpp"

#include <map>
#include <string>

namespace tarnwick {

// A process that is whatever a test says.
class FakeProcess : public Process {
  public:
    [[nodiscard]] std::string commandLine() const override { return givenCommandLine; }
    [[nodiscard]] std::string programFolder() const override { return givenProgramFolder; }
    [[nodiscard]] std::string environmentVariable(std::string_view name) const override {
        const auto found = variables.find(upperCase(name));
        return found == variables.end() ? std::string() : found->second;
    }

    std::string givenCommandLine;
    std::string givenProgramFolder = R"(C:\Program Files\Tarnwick)";
    std::map<std::string, std::string> variables; // by upper-cased name
};

} // namespace tarnwick
