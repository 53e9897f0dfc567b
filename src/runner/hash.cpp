#include "runner/hash.hpp"

namespace tarnwick {

// FNV-1a, of 64 bits, and a last stir: short texts that differ in their last byte differ
// everywhere.
std::uint64_t hashOf(std::string_view text) noexcept {
    std::uint64_t hash = 14695981039346656037U;
    for (const char character : text) {
        hash = (hash ^ static_cast<unsigned char>(character)) * 1099511628211U;
    }
    hash ^= hash >> 32U;
    return hash * 0xD6E8FEB86659FD93U;
}

std::string hexadecimal(std::uint64_t number) {
    std::string digits(16, '0');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, number >>= 4U) {
        *digit = "0123456789abcdef"[number & 0xFU];
    }
    return digits;
}

} // namespace tarnwick
