#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace tarnwick {

// A batch file that has been started. It goes on when this object or the whole program ends.
class StartedBatch {
  public:
    virtual ~StartedBatch() = default;

    // Whether its interpreter has come to its end, by whatever way. Never raises.
    [[nodiscard]] virtual bool hasEnded() const = 0;
};

// The command interpreter that runs batch files.
class CommandInterpreter {
  public:
    virtual ~CommandInterpreter() = default;

    // Starts the batch file in a window that is not shown, and returns at once. Raises 53 (no such
    // file), 75 (the interpreter could not be started).
    virtual std::unique_ptr<StartedBatch> startHidden(std::string_view batchFile) = 0;

    // `text`, which is in the system's code page, as bytes of a batch file: the interpreter reads
    // those in its own code page. Where one of its characters has no place there, the result is
    // empty although `text` is not.
    [[nodiscard]] virtual std::string batchText(std::string_view text) const = 0;

    // The line, without its end, that makes the interpreter read what follows in the system's
    // code page, such as "@"%SystemRoot%\System32\chcp.com" 1252 > nul". It names the program in
    // full: the interpreter looks for a bare name in its current folder first.
    [[nodiscard]] virtual std::string systemCodePageLine() const = 0;
};

} // namespace tarnwick
