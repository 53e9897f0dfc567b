#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwick {

// Of a text that comes in pieces, what hashOf gives for the whole.
class PiecewiseHash {
  public:
    void add(std::string_view piece) noexcept;
    [[nodiscard]] std::uint64_t hash() const noexcept;

  private:
    std::uint64_t hash_ = 14695981039346656037U;
};

// A number that tells texts apart, the same on every machine. No secret, and no defence against
// somebody who wants two texts to have one.
[[nodiscard]] std::uint64_t hashOf(std::string_view text) noexcept;

// In hexadecimal, 16 digits.
[[nodiscard]] std::string hexadecimal(std::uint64_t number);

} // namespace tarnwick
