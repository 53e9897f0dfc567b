#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// One run of an outside tool, kept as a list so that it can become a line of a batch file or the
// arguments of a process.
struct ToolArgument {
    enum class Kind {
        Word,     // an option letter, a language code: stands as it is
        Settings, // path of a file that steers the tool (configuration, aliases)
        Input,    // path of the record
        Output,   // path of a file that the tool writes
    };

    Kind kind = Kind::Word;
    std::string text;

    bool operator==(const ToolArgument&) const = default;
};

struct ToolCommand {
    std::string tool; // path of the executable
    std::vector<ToolArgument> arguments;

    bool operator==(const ToolCommand&) const = default;
};

// The command as a line of a batch file, without its end: "call" lets the batch go on when the
// tool has ended; paths stand in double quotation marks, words do not.
[[nodiscard]] std::string batchLine(const ToolCommand& command);

} // namespace tarnwick
