#pragma once

// What holds of every log with lines that are checked: what is read of any bytes is never more than
// their lines, and each line that says something says the same once it is written again, also when
// its checksum is made right.

#include "platform/run_time_error.hpp"
#include "require.hpp"
#include "runner/log_fields.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwick {

template <typename Parse, typename Write>
void tryLogLine(std::string_view fields, const Parse& parse, const Write& write) {
    std::string line = logLineOf(std::string(fields));
    line.pop_back();
    const auto said = parse(line);
    if (!said) {
        return;
    }
    std::string again = write(*said);
    require(again.ends_with('\n') && again.find('\n') == again.size() - 1, "a line is one line");
    again.pop_back();
    const auto saidAgain = parse(again); // seconds to their thousandths
    require(saidAgain.has_value(), "what is written can be read");
    require(write(*saidAgain) == again + "\n", "a line says the same when it is written again");
}

// `read` gives how many lines it has found in a log of that text, whole and damaged.
template <typename Read>
void tryLogText(std::string_view text, const Read& read) {
    const auto lines = 1 + std::ranges::count(text, '\n') + std::ranges::count(text, '\r');
    try {
        require(read(text) <= static_cast<std::size_t>(lines), "no more is read than is there");
    } catch (const RunTimeError& error) {
        require(error.is(ErrorNumber::InvalidFileFormat), "another file is refused as such");
    }
}

// As a whole log, below the title of one, and each of its lines with a checksum.
template <typename Read, typename Parse, typename Write>
void tryLog(const std::uint8_t* data, std::size_t size, std::string_view title, const Read& read,
            const Parse& parse, const Write& write) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    tryLogText(text, read);
    tryLogText(std::string(title) + "1\n" + text, read);
    for (std::string_view rest = text; !rest.empty();) {
        const auto line = rest.substr(0, rest.find('\n'));
        tryLogLine(line, parse, write);
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
}

} // namespace tarnwick
