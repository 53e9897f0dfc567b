#pragma once

#include "definition/batch_definition.hpp"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tarnwick {

// The row of the product with that type name, of MP or CNS; fails the test where there is none.
template <typename Definition> // BatchDefinition, const or not
[[nodiscard]] auto& output(Definition& definition, std::string_view type) {
    const auto isOfType = [&](const OutputDefinition& row) { return row.sFileType == type; };
    if (const auto row = std::ranges::find_if(definition.MPOutputs, isOfType);
        row != definition.MPOutputs.end()) {
        return *row;
    }
    const auto row = std::ranges::find_if(definition.CNSOutputs, isOfType);
    if (row == definition.CNSOutputs.end()) {
        throw std::logic_error("no product " + std::string(type));
    }
    return *row;
}

} // namespace tarnwick
