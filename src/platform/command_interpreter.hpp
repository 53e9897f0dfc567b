#pragma once

#include <string>
#include <string_view>

namespace tarnwick {

// The command interpreter that runs batch files.
class CommandInterpreter {
  public:
    virtual ~CommandInterpreter() = default;

    // Starts the batch file in a window that is not shown, and returns at once. The batch goes on
    // when this program ends. Raises 53 (no such file), 75 (the interpreter could not be started).
    virtual void startHidden(std::string_view batchFile) = 0;

    // `text`, which is in the system's code page, as bytes of a batch file: the interpreter reads
    // those in its own code page. Where one of its characters has no place there, the result is
    // empty although `text` is not.
    [[nodiscard]] virtual std::string batchText(std::string_view text) const = 0;

    // The line, without its end, that makes the interpreter read what follows in the system's
    // code page, such as "@chcp 1252 > nul".
    [[nodiscard]] virtual std::string systemCodePageLine() const = 0;
};

} // namespace tarnwick
