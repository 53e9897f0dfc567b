// Text of any bytes: its upper case, its comparison and its form in the interpreter's code page are
// those of this machine's own tables.

#include "platform/case_folding.hpp"
#include "reference/system_characters.hpp"
#include "require.hpp"
#include "support/code_page_437.hpp"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarnwick {
namespace {

void tryText(std::string_view text) {
    require(upperCase(text) == reference::upperCase(text), "the upper case is the system's");
    require(equalIgnoringCase(text, reference::upperCase(text)), "case does not matter");
    require(inCodePage437(text) == reference::inCodePage437(text),
            "the interpreter's form is the system's");
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarnwick::tryText({reinterpret_cast<const char*>(data), size});
    return 0;
}
