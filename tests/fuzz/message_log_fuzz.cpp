// The text of a message log, of any bytes: what is read of it is never more than its lines, and
// each line that says something says the same once it is written again, also when its checksum is
// made right.

#include "memory_files.hpp"
#include "platform/run_time_error.hpp"
#include "require.hpp"
#include "runner/log_fields.hpp"
#include "runner/message_log.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tarnwick {
namespace {

void tryLine(std::string_view fields) {
    std::string line = logLineOf(std::string(fields));
    line.pop_back();
    const auto said = parseMessageLogLine(line);
    if (!said) {
        return;
    }
    std::string again = messageLogLineText(*said);
    require(again.ends_with('\n') && again.find('\n') == again.size() - 1, "a line is one line");
    again.pop_back();
    const auto saidAgain = parseMessageLogLine(again);
    require(saidAgain.has_value(), "what is written can be read");
    require(messageLogLineText(*saidAgain) == again + "\n",
            "a line says the same when it is written again");
}

void tryText(std::string_view text) {
    const auto lines = 1 + std::ranges::count(text, '\n') + std::ranges::count(text, '\r');
    try {
        std::size_t whole = 0;
        const auto faults = readMessageLog(MemoryFiles(text), "C:\\state\\messages.log",
                                           [&](const MessageLogLine&) { ++whole; });
        require(whole + faults.damaged <= static_cast<std::size_t>(lines),
                "no more is read than is there");
    } catch (const RunTimeError& error) {
        require(error.is(ErrorNumber::InvalidFileFormat), "another file is refused as such");
    }
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    tarnwick::tryText(text);
    tarnwick::tryText("tarnwick-run messages 1\n" + text);
    for (std::string_view rest = text; !rest.empty();) {
        const auto line = rest.substr(0, rest.find('\n'));
        tarnwick::tryLine(line);
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
    return 0;
}
