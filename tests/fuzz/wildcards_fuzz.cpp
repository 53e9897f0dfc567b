// A line of patterns, then names: each name matches as a plain second version says, and sorting
// puts the names into the order of their comparison.

#include "fields.hpp"
#include "platform/wildcard.hpp"
#include "reference/plain_wildcard.hpp"
#include "require.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {
namespace {

constexpr std::size_t mostNames = 8;
// The plain version tries every way.
constexpr std::size_t longestPattern = 16;
constexpr std::size_t longestName = 24;

void tryBytes(std::string_view bytes) {
    Fields fields(bytes);
    const std::string patterns = fields.next().substr(0, longestPattern);
    std::vector<std::string> names;
    while (!fields.rest().empty() && names.size() < mostNames) {
        names.push_back(fields.next().substr(0, longestName));
    }
    for (const std::string& name : names) {
        require(matchesAnyWildcard(name, patterns) == reference::matchesAnyWildcard(name, patterns),
                "a name matches as the plain version says");
    }
    std::vector<std::string> compared = names;
    std::ranges::sort(compared, nameLess);
    sortNames(names);
    require(names == compared, "names are sorted as they compare");
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarnwick::tryBytes({reinterpret_cast<const char*>(data), size});
    return 0;
}
