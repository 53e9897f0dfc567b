#include "platform/win32/win32_clock.hpp"

#include <windows.h>

#include <cstddef>

namespace tarnwick {
namespace {

// What a function of the locale writes: asked for its length, then for its text.
template <typename Format>
std::string formatted(Format&& format) {
    const int size = format(nullptr, 0);
    std::string text(static_cast<std::size_t>(size), '\0');
    const int written = size == 0 ? 0 : format(text.data(), size);
    text.resize(written == 0 ? 0 : static_cast<std::size_t>(written) - 1); // less the final NUL
    return text;
}

} // namespace

double Win32Clock::steadySeconds() const {
    LARGE_INTEGER frequency{};
    LARGE_INTEGER count{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&count);
    return static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

std::string Win32Clock::longDate() const {
    return formatted([](char* text, int size) {
        return GetDateFormatA(LOCALE_USER_DEFAULT, DATE_LONGDATE, nullptr, nullptr, text, size);
    });
}

std::string Win32Clock::longTime() const {
    return formatted([](char* text, int size) {
        return GetTimeFormatA(LOCALE_USER_DEFAULT, 0, nullptr, nullptr, text, size);
    });
}

} // namespace tarnwick
