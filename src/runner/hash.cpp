#include "runner/hash.hpp"

namespace tarnwick {

// FNV-1a, of 64 bits, and a last stir: short texts that differ in their last byte differ
// everywhere.
void PiecewiseHash::add(std::string_view piece) noexcept {
    for (const char character : piece) {
        hash_ = (hash_ ^ static_cast<unsigned char>(character)) * 1099511628211U;
    }
}

std::uint64_t PiecewiseHash::hash() const noexcept {
    return (hash_ ^ (hash_ >> 32U)) * 0xD6E8FEB86659FD93U;
}

std::uint64_t hashOf(std::string_view text) noexcept {
    PiecewiseHash hash;
    hash.add(text);
    return hash.hash();
}

std::string hexadecimal(std::uint64_t number) {
    std::string digits(16, '0');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, number >>= 4U) {
        *digit = "0123456789abcdef"[number & 0xFU];
    }
    return digits;
}

} // namespace tarnwick
