// Messages of any bytes: the shape of a shape is that shape, it is not much longer than its
// message, no digit of any script is left in it and no blank too many, and it stays the same when
// other digits stand in the message. The first line is also tried as the name of the record whose
// message the rest is.

#include "fields.hpp"
#include "reference/plain_digits.hpp"
#include "report/shapes.hpp"
#include "require.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>

namespace tarnwick {
namespace {

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

std::string tryShape(const std::string& message, const std::string& record) {
    const std::string shape = shapeOf(message, record);
    require(shapeOf(shape) == shape, "the shape of a shape is that shape");
    require(2 * shape.size() <= 5 * message.size(), "a shape is not much longer than its message");
    require(std::ranges::none_of(shape, isDigit) && reference::withOtherDigits(shape) == shape,
            "no digit is left");
    require(!shape.contains("  ") && !shape.starts_with(' ') && !shape.ends_with(' '),
            "blanks stand alone, and between words");
    return shape;
}

void tryMessage(const std::string& message) {
    const std::string shape = tryShape(message, "");
    std::string others = reference::withOtherDigits(message);
    std::ranges::transform(others, others.begin(), [](char character) {
        return isDigit(character) ? static_cast<char>('0' + '9' - character) : character;
    });
    require(shapeOf(others) == shape, "all digits are alike");

    std::string quoted = message;
    std::erase(quoted, '"');
    require(shapeOf("\"" + quoted + "\" 1") == "\"\u2026\" #", "all quoted texts are alike");
}

// A name of letters, digits, blanks and brackets is masked wherever it stands as a whole.
void tryName(const std::string& line) {
    std::string name;
    std::ranges::copy_if(line, std::back_inserter(name), [](char character) {
        return isDigit(character) || (character >= 'a' && character <= 'z') || character == ' ' ||
               character == '(' || character == ')';
    });
    name += "n.met";
    name.erase(0, name.find_first_not_of(' '));
    require(shapeOf("x " + name + " y", name) == "x \u2026 y", "its own name is masked");
    require(shapeOf("x C:\\my in\\" + name + ": y", name) == "x \u2026: y", "and its path");
    require(shapeOf("x \"" + name + "\"", name) == "x \"\u2026\"", "and where it is quoted");
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    tarnwick::tryMessage(text);
    tarnwick::Fields fields(text);
    const std::string record = fields.next();
    tarnwick::tryShape(std::string(fields.rest()), record);
    tarnwick::tryName(record);
    return 0;
}
