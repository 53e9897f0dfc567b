#pragma once

#include <cstddef>
#include <string_view>

namespace tarnwick {

// How often the part stands in the text.
[[nodiscard]] inline std::size_t timesIn(std::string_view text, std::string_view part) {
    std::size_t times = 0;
    for (std::size_t place = 0; (place = text.find(part, place)) != std::string_view::npos;
         ++place) {
        ++times;
    }
    return times;
}

} // namespace tarnwick
