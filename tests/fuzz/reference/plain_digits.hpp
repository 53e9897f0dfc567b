#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace tarnwick::reference {

// The digits of all scripts but ours, each with another one of its script: 0 with 9, 1 with 8.
inline const std::map<std::string, std::string>& otherDigits() {
    // The zeros, by Python's list of Unicode 14.
    constexpr std::array<char32_t, 65> zeros{
        0x660,   0x6F0,   0x7C0,   0x966,   0x9E6,   0xA66,   0xAE6,   0xB66,   0xBE6,   0xC66,
        0xCE6,   0xD66,   0xDE6,   0xE50,   0xED0,   0xF20,   0x1040,  0x1090,  0x17E0,  0x1810,
        0x1946,  0x19D0,  0x1A80,  0x1A90,  0x1B50,  0x1BB0,  0x1C40,  0x1C50,  0xA620,  0xA8D0,
        0xA900,  0xA9D0,  0xA9F0,  0xAA50,  0xABF0,  0xFF10,  0x104A0, 0x10D30, 0x11066, 0x110F0,
        0x11136, 0x111D0, 0x112F0, 0x11450, 0x114D0, 0x11650, 0x116C0, 0x11730, 0x118E0, 0x11950,
        0x11C50, 0x11D50, 0x11DA0, 0x16A60, 0x16AC0, 0x16B50, 0x1D7CE, 0x1D7D8, 0x1D7E2, 0x1D7EC,
        0x1D7F6, 0x1E140, 0x1E2F0, 0x1E950, 0x1FBF0};
    static const std::map<std::string, std::string> digits = [&] {
        const auto utf8 = [](char32_t number) {
            std::string bytes;
            for (; number >= 0x40; number /= 0x40) {
                bytes.insert(bytes.begin(), static_cast<char>(0x80 + number % 0x40));
            }
            const char32_t room = bytes.size() == 1 ? 0x20 : bytes.size() == 2 ? 0x10 : 0x08;
            if (number >= room) { // no room for these bits beside the length
                bytes.insert(bytes.begin(), static_cast<char>(0x80 + number));
                number = 0;
            }
            const int lead = bytes.size() == 1 ? 0xC0 : bytes.size() == 2 ? 0xE0 : 0xF0;
            bytes.insert(bytes.begin(), static_cast<char>(lead + static_cast<int>(number)));
            return bytes;
        };
        std::map<std::string, std::string> all;
        for (const char32_t zero : zeros) {
            for (char32_t digit = 0; digit < 10; ++digit) {
                all[utf8(zero + digit)] = utf8(zero + 9 - digit);
            }
        }
        return all;
    }();
    return digits;
}

inline std::string withOtherDigits(std::string_view text) {
    std::string others;
    while (!text.empty()) {
        std::size_t taken = 1;
        std::string character(text.substr(0, 1));
        for (const std::size_t length : {2U, 3U, 4U}) {
            const auto digit = otherDigits().find(std::string(text.substr(0, length)));
            if (digit != otherDigits().end()) {
                character = digit->second;
                taken = digit->first.size();
            }
        }
        others += character;
        text.remove_prefix(taken);
    }
    return others;
}

} // namespace tarnwick::reference
