// A page of any bytes, behind three lines: the page's own path and two that it may link to. What
// becomes of it is what a plain second version makes, however the bytes arrive. A byte 1 in the
// page, the first one, stands for 66'000 letters: a line longer than the block in which pages are
// read.

#include "fields.hpp"
#include "memory_files.hpp"
#include "platform/windows_path.hpp"
#include "postprocess/page_links.hpp"
#include "reference/plain_page.hpp"
#include "require.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwick {
namespace {

std::string stretched(std::string_view page) {
    constexpr std::size_t longRun = 66'000; // more than a block, which is of 64 KB
    std::string result(page);
    if (const auto at = result.find('\x01'); at != std::string::npos) {
        result.replace(at, 1, longRun, 'x');
    }
    return result;
}

std::string withoutReturn(std::string line) {
    std::erase(line, '\r'); // no path holds one
    return line;
}

void tryPage(std::string_view bytes) {
    Fields fields(bytes);
    const std::string own = "\\" + withoutReturn(fields.next());
    PageRule rule{.links = {}, .ownPath = own, .ownName = GetFileName(own)};
    for (int i = 0; i < 2; ++i) {
        const std::string target = "\\" + withoutReturn(fields.next());
        rule.links.push_back({.from = std::string(linkMarker) + target + '"',
                              .to = std::string(linkMarker) + "../" + target.substr(1) + '"'});
    }
    const std::string page = stretched(fields.rest());
    MemoryInput input(page);
    MemoryOutput output;
    rewriteLinks(input, output, rule);
    require(output.text == reference::rewrittenPage(page, rule),
            "the page is what the plain version makes");
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarnwick::tryPage({reinterpret_cast<const char*>(data), size});
    return 0;
}
