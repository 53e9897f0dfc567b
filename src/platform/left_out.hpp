#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwick {

// The entries of a folder that cannot be given to whoever asks, and of which the user is told.
struct LeftOut {
    std::size_t count = 0;
    std::string first; // by name, for showing

    bool operator==(const LeftOut&) const = default;
};

// Counts one more, whose name is shown as `shown`.
void leaveOut(std::string shown, LeftOut& leftOut);

// How a character is shown that has no place in the system's code page, or no look: "<U+0416>". No
// file name holds a "<", so that it is never taken for a part of one.
[[nodiscard]] std::string shownByNumber(std::uint32_t character);

// Whether a text that came from the system holds such a number.
[[nodiscard]] bool holdsShownNumber(std::string_view text) noexcept;

} // namespace tarnwick
