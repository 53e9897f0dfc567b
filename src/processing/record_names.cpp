#include "processing/record_names.hpp"

#include <algorithm>

namespace tarnwick {
namespace {

bool isControl(char character) noexcept {
    const auto code = static_cast<unsigned char>(character);
    return code < 0x20 || code == 0x7F;
}

std::string shownName(std::string_view record) {
    std::string shown;
    for (const char character : record) {
        if (isControl(character)) {
            shown += shownByNumber(static_cast<unsigned char>(character));
        } else {
            shown += character;
        }
    }
    return shown;
}

} // namespace

bool staysName(std::string_view record) noexcept {
    constexpr std::string_view unsafe = R"("<>|*?:/\)";
    return !record.empty() &&
           std::ranges::none_of(record, [&](char c) { return isControl(c) || unsafe.contains(c); });
}

LeftOut refuseUnsafeNames(std::vector<std::string>& records) {
    LeftOut refused;
    std::erase_if(records, [&refused](const std::string& record) {
        if (staysName(record)) {
            return false;
        }
        leaveOut(shownName(record), refused);
        return true;
    });
    return refused;
}

} // namespace tarnwick
