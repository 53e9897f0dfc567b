#pragma once

#include "platform/files.hpp"
#include "runner/message_patterns.hpp"
#include "runner/products.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// How many messages of one file are kept, and how many bytes of one message.
inline constexpr std::size_t mostMessages = 300;
inline constexpr std::size_t longestMessage = 300;

// What a tool says of a record: one line of its report, without the blanks around it. One that is
// too long ends in "...".
struct ToolMessage {
    std::uint32_t line = 0; // of its file, counted from 1
    std::string text;

    bool operator==(const ToolMessage&) const = default;
};

// What the tools have said of one record, in their reports.
struct RecordMessages {
    std::vector<ToolMessage> kept; // CNS's, then MP's; in the order of their files
    std::string failing;           // the first that fails the record, be it kept or not
    std::uint64_t leftOut = 0;     // how many more there were that no pattern ignores
    bool isPart = false;           // some are left out, or the end of one that is kept is missing

    bool operator==(const RecordMessages&) const = default;
};

// Whether that product says what is wrong with the record: MP's error report, CNS's leftovers.
[[nodiscard]] bool holdsMessages(const ProductKind& kind) noexcept;

// Whether the tools are asked for such a product.
[[nodiscard]] bool messagesAreKnown(const Products& products);

// Why --fail-on is refused otherwise.
inline constexpr std::string_view nothingCouldFail =
    "Nothing could fail by --fail-on: the definition asks for no error report of MP and no "
    "leftovers of CNS.";

// Why such a message fails its record, as a sentence.
[[nodiscard]] std::string messageFailure(std::string_view message);

// Turns a text that a tool has written into the program's code page. Empty: nothing needs to be
// turned.
using ToolText = std::function<std::string(std::string_view text)>;

// The largest report that is read, in bytes: what is more is damage, or has no end.
inline constexpr std::uint64_t largestReport = 1'000'000'000;

// Adds every line of the first `size` bytes of the file that is not blank; what is written behind
// them meanwhile is not read. Patterns see 64 KB of a line. Beyond mostMessages, lines are judged
// by the patterns and counted in `leftOut`, but not kept. Memory: what is kept, however long file
// and lines are. Raises what InputFile::read raises.
void readMessages(InputFile& file, std::uint64_t size, const MessagePatterns& patterns,
                  RecordMessages& messages, const ToolText& toolText = {});

} // namespace tarnwick
