#include "platform/case_folding.hpp"

#include <algorithm>

namespace tarnwick {

std::string upperCase(std::string_view text, const CodePage& codePage) {
    std::string result(text);
    if (!codePage.hasTrailBytes()) {
        std::ranges::transform(result, result.begin(),
                               [&](char c) { return codePage.upperCase(c); });
        return result;
    }
    for (std::size_t place = 0; place < text.size();
         place += codePage.lengthOfFirst(text.substr(place))) {
        result[place] = codePage.upperCase(result[place]);
    }
    return result;
}

bool equalIgnoringCase(std::string_view left, std::string_view right,
                       const CodePage& codePage) noexcept {
    if (left.size() != right.size()) {
        return false;
    }
    if (!codePage.hasTrailBytes()) {
        return std::ranges::equal(
            left, right, {}, [&](char c) { return codePage.upperCase(c); },
            [&](char c) { return codePage.upperCase(c); });
    }
    while (!left.empty() && !right.empty()) {
        if (codePage.takeUpperCased(left) != codePage.takeUpperCased(right)) {
            return false;
        }
    }
    return left.empty() && right.empty();
}

} // namespace tarnwick
