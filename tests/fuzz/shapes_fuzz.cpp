// Messages of any bytes: the shape of a shape is that shape, it is not much longer than its
// message, no digit is left in it and no blank too many, and it stays the same when other digits
// stand in the message.

#include "report/shapes.hpp"
#include "require.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tarnwick {
namespace {

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

void tryMessage(const std::string& message) {
    const std::string shape = shapeOf(message);
    require(shapeOf(shape) == shape, "the shape of a shape is that shape");
    require(2 * shape.size() <= 5 * message.size(), "a shape is not much longer than its message");
    require(std::ranges::none_of(shape, isDigit), "no digit is left");
    require(!shape.contains("  ") && !shape.starts_with(' ') && !shape.ends_with(' '),
            "blanks stand alone, and between words");

    std::string others = message;
    std::ranges::transform(others, others.begin(), [](char character) {
        return isDigit(character) ? static_cast<char>('0' + '9' - character) : character;
    });
    require(shapeOf(others) == shape, "all digits are alike");

    std::string quoted = message;
    std::erase(quoted, '"');
    require(shapeOf("\"" + quoted + "\" 1") == "\"\u2026\" #", "all quoted texts are alike");
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarnwick::tryMessage(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
