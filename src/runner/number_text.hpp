#pragma once

#include <string>

namespace tarnwick {

// With a point, whatever the user's language: with so many digits behind it, or with as many as it
// takes to tell the number from every other.
[[nodiscard]] std::string numberText(double number, int places);
[[nodiscard]] std::string numberText(double number);

} // namespace tarnwick
