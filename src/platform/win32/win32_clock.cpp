#include "platform/win32/win32_clock.hpp"

#include "platform/win32/system_text.hpp"

#include <windows.h>

#include <cstddef>

namespace tarnwick {
namespace {

// What a function of the locale writes: asked for its length, then for its text.
template <typename Format>
std::wstring formatted(const Format& format, LCID locale) {
    const int size = format(locale, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(size), L'\0');
    const int written = size == 0 ? 0 : format(locale, text.data(), size);
    text.resize(written == 0 ? 0 : static_cast<std::size_t>(written) - 1); // less the final NUL
    return text;
}

// As the user writes it, or in plain English where the code page does not have those letters.
template <typename Format>
std::string formattedForUser(const Format& format) {
    return toSystemText(formatted(format, LOCALE_USER_DEFAULT))
        .or_else([&] { return toSystemText(formatted(format, LOCALE_INVARIANT)); })
        .value_or("");
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
    return formattedForUser([](LCID locale, wchar_t* text, int size) {
        return GetDateFormatW(locale, DATE_LONGDATE, nullptr, nullptr, text, size);
    });
}

std::string Win32Clock::longTime() const {
    return formattedForUser([](LCID locale, wchar_t* text, int size) {
        return GetTimeFormatW(locale, 0, nullptr, nullptr, text, size);
    });
}

} // namespace tarnwick
