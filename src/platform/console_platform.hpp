#pragma once

#include "platform/code_page.hpp"
#include "platform/file_stamps.hpp"
#include "platform/files.hpp"
#include "platform/interruptions.hpp"
#include "platform/process.hpp"
#include "platform/process_lock.hpp"
#include "platform/settings_store.hpp"
#include "platform/terminal.hpp"
#include "platform/tool_paths.hpp"
#include "platform/tool_processes.hpp"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// What a user can say of the system that a console program runs on.
struct ConsoleOptions {
    std::vector<std::string> drives;       // where drives and shares lie, on a system without
    unsigned codePage = CodePage::western; // of definitions, on a system with another text

    bool operator==(const ConsoleOptions&) const = default;
};

// All that a console program asks of its system. What is given out lives as long as this.
class ConsolePlatform {
  public:
    virtual ~ConsolePlatform() = default;

    [[nodiscard]] virtual Files& files() = 0;
    [[nodiscard]] virtual const FileStamps& stamps() const = 0;
    [[nodiscard]] virtual const ToolPaths& toolPaths() const = 0;
    [[nodiscard]] virtual ToolProcesses& processes() = 0;
    [[nodiscard]] virtual ProcessLocks& locks() = 0;
    [[nodiscard]] virtual Interruptions& interruptions() = 0;
    [[nodiscard]] virtual const Process& process() const = 0;
    [[nodiscard]] virtual const SettingsStore& settings() const = 0;

    // The full Windows path of what the user typed, as paths are written on this system or on
    // Windows. Raises 52.
    [[nodiscard]] virtual std::string typedPath(std::string_view typed) const = 0;

    // Everything that a definition's file holds, in the program's own code page. Raises what
    // Files::openForReading and InputFile::read raise, and 321 where a byte is no character.
    [[nodiscard]] virtual std::string definitionText(std::string_view path) = 0;

    // Whether the system could start that file.
    [[nodiscard]] virtual bool canStart(const std::string& path) const = 0;

    // A text of the program's code page in UTF-8.
    [[nodiscard]] virtual std::string utf8(std::string_view text) const = 0;

    // What a tool has written, in the program's code page; as it is where it is no text that a
    // tool of this system would write. May be called from several threads.
    [[nodiscard]] virtual std::string toolText(std::string_view text) const = 0;

    // This process, for people: "process 123 on HOST".
    [[nodiscard]] virtual std::string processName() const = 0;
};

// To be called before there are threads. Raises, in a sentence, where an option cannot be.
[[nodiscard]] std::unique_ptr<ConsolePlatform> makeConsolePlatform(const ConsoleOptions& options);

// The standard streams, which are needed earlier.
[[nodiscard]] std::unique_ptr<Terminal> makeTerminal();

// What the program was given, without its own name, in its own code page. What has no place there
// is shown by its number, and names nothing.
[[nodiscard]] std::vector<std::string> programArguments(int count, const char* const* arguments);

} // namespace tarnwick
