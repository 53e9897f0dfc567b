// The text of a run log, of any bytes: what is read of it is never more than its lines, and each
// line that says something says the same once it is written again, also when its checksum is made
// right.

#include "memory_files.hpp"
#include "platform/run_time_error.hpp"
#include "require.hpp"
#include "runner/hash.hpp"
#include "runner/run_log.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tarnwick {
namespace {

void tryLine(std::string_view fields) {
    const std::string line = std::string(fields) + "\t" + hexadecimal(hashOf(fields)).substr(0, 8);
    const auto said = parseLogLine(line);
    if (!said) {
        return;
    }
    std::string again = logLineText(*said);
    require(again.ends_with('\n') && again.find('\n') == again.size() - 1, "a line is one line");
    again.pop_back();
    const auto saidAgain = parseLogLine(again); // seconds to their thousandths
    require(saidAgain.has_value(), "what is written can be read");
    require(logLineText(*saidAgain) == again + "\n",
            "a line says the same when it is written again");
}

void tryText(std::string_view text) {
    const auto lines = 1 + std::ranges::count(text, '\n') + std::ranges::count(text, '\r');
    try {
        const RunHistory history = readRunLog(MemoryFiles(text), "C:\\state\\run.log");
        require(history.lines + history.damaged <= static_cast<std::size_t>(lines),
                "no more is read than is there");
        require(history.records.size() + history.runs.size() <= history.lines,
                "what is known was in a line");
    } catch (const RunTimeError& error) {
        require(error.is(ErrorNumber::InvalidFileFormat), "another file is refused as such");
    }
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    tarnwick::tryText(text);
    tarnwick::tryText("tarnwick-run log 1\n" + text);
    for (std::string_view rest = text; !rest.empty();) {
        const auto line = rest.substr(0, rest.find('\n'));
        tarnwick::tryLine(line);
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
    return 0;
}
