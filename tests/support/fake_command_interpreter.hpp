#pragma once

#include "platform/command_interpreter.hpp"
#include "platform/files.hpp"
#include "platform/run_time_error.hpp"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarnwick {

// Runs no batch file but remembers each one with what it held when it was started. The code pages
// are those of Western European Windows: 1252 and 437.
class FakeCommandInterpreter : public CommandInterpreter {
  public:
    struct Started {
        std::string path;
        std::string content;
        bool operator==(const Started&) const = default;
    };

    // Reads the batch files through `files`, which must outlive it.
    explicit FakeCommandInterpreter(const Files& files) : files_(files) {}

    std::unique_ptr<StartedBatch> startHidden(std::string_view batchFile) override;
    [[nodiscard]] std::string batchText(std::string_view text) const override;
    [[nodiscard]] std::string systemCodePageLine() const override;

    std::vector<Started> started;
    std::optional<RunTimeError> failure; // raised by every start instead of starting
    // Called behind each start: does what the batch would do.
    std::function<void(const Started&)> run;
    // Whether the batch that was started last has ended; they do so at once where this is empty.
    std::function<bool()> hasEnded;

  private:
    const Files& files_;
};

} // namespace tarnwick
