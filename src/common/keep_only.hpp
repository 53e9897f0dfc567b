#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace tarnwick {

// Drops every element i for which kept[i] is false. `kept` is as long as `elements`.
template <typename Element>
void keepOnly(const std::vector<bool>& kept, std::vector<Element>& elements) {
    std::size_t end = 0;
    for (std::size_t place = 0; place < elements.size(); ++place) {
        if (kept.at(place)) {
            if (end != place) {
                elements[end] = std::move(elements[place]);
            }
            ++end;
        }
    }
    elements.resize(end);
}

} // namespace tarnwick
