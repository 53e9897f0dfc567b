// Arguments of any bytes, one a line: the command line that is made of them gives a program these
// arguments, by a plain version of how the C run-time library of Windows takes one apart.

#include "fields.hpp"
#include "platform/tool_command_line.hpp"
#include "reference/plain_tool_lines.hpp"
#include "require.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::wstring wide(std::string_view bytes) {
    std::wstring text;
    for (const char byte : bytes) {
        text += static_cast<wchar_t>(static_cast<unsigned char>(byte));
    }
    return text;
}

std::string narrow(std::wstring_view text) {
    std::string bytes;
    for (const wchar_t character : text) {
        bytes += static_cast<char>(character);
    }
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarnwick::Fields fields({reinterpret_cast<const char*>(data), size});
    std::vector<std::string> expected{"mp"};
    std::vector<std::wstring> arguments;
    while (!fields.rest().empty()) {
        expected.push_back(fields.next());
        arguments.push_back(wide(expected.back()));
    }
    tarnwick::require(tarnwick::reference::argumentsOf(
                          narrow(tarnwick::commandLineOf(L"mp", arguments))) == expected,
                      "a program gets the arguments that were meant for it");
    return 0;
}
