#include "platform/win32/system_text.hpp"

#include "platform/characters.hpp"
#include "platform/left_out.hpp"
#include "platform/win32/errors.hpp"
#include "platform/win32/filled_text.hpp"
#include "platform/windows_path.hpp"

#include <algorithm>
#include <cstddef>

namespace tarnwick {
namespace {

constexpr UINT gb18030 = 54936;

bool isAscii(std::wstring_view wide) noexcept {
    return std::ranges::none_of(wide, [](wchar_t c) { return c > 0x7F; });
}

// Empty where `flags` refuse the text.
std::wstring widened(std::string_view text, UINT codePage, DWORD flags) {
    if (tarnwick::isAscii(text)) {
        return {text.begin(), text.end()};
    }
    const int length = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0'); // never more characters than bytes
    const int count =
        // NOLINTNEXTLINE(*-stringview-data-usage): its length is the next argument
        MultiByteToWideChar(codePage, flags, text.data(), length, wide.data(), length);
    wide.resize(static_cast<std::size_t>(count));
    return wide;
}

bool isControl(wchar_t character) noexcept {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

bool isHighSurrogate(wchar_t unit) noexcept {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(wchar_t unit) noexcept {
    return unit >= 0xDC00 && unit < 0xE000;
}

// Empty where there is no such file.
std::wstring shortened(const std::wstring& path) {
    return filledBy([&path](wchar_t* buffer, DWORD size) {
        return GetShortPathNameW(path.c_str(), buffer, size);
    });
}

} // namespace

std::wstring toWide(std::string_view text) {
    return widened(text, CP_ACP, 0);
}

std::wstring toWidePath(std::string_view path) {
    auto wide = fromCodePage(path, CP_ACP);
    if (!wide) {
        raiseSystemError(ERROR_INVALID_NAME);
    }
    return *std::move(wide);
}

std::string possible(std::string_view path) {
    if (!isPossiblePath(path)) {
        raiseSystemError(ERROR_INVALID_NAME);
    }
    return std::string(path);
}

std::optional<std::wstring> fromCodePage(std::string_view text, UINT codePage) {
    auto wide = widened(text, codePage, MB_ERR_INVALID_CHARS);
    if (wide.empty() && !text.empty()) {
        return std::nullopt;
    }
    return wide;
}

std::optional<std::string> toCodePage(std::wstring_view wide, UINT codePage) {
    std::string text(wide.size(), '\0');
    if (isAscii(wide)) {
        std::ranges::transform(wide, text.begin(), [](wchar_t c) { return static_cast<char>(c); });
        return text;
    }
    constexpr std::size_t mostBytesOfOne = 4;
    text.resize(wide.size() * mostBytesOfOne);
    const UINT actual = codePage == CP_ACP     ? GetACP()
                        : codePage == CP_OEMCP ? GetOEMCP()
                                               : codePage;
    const bool hasEveryCharacter = actual == CP_UTF8 || actual == gb18030;
    const int count = WideCharToMultiByte(actual, hasEveryCharacter ? 0 : WC_NO_BEST_FIT_CHARS,
                                          wide.data(), static_cast<int>(wide.size()), text.data(),
                                          static_cast<int>(text.size()), nullptr, nullptr);
    text.resize(static_cast<std::size_t>(count));
    // What comes back as something else was not there, whatever the system says: it has tables of
    // similar characters for both directions.
    if (widened(text, actual, 0) != wide) {
        return std::nullopt;
    }
    return text;
}

std::optional<std::string> toSystemText(std::wstring_view wide) {
    return toCodePage(wide, CP_ACP);
}

std::optional<std::string> toFileName(std::wstring_view wide) {
    return std::ranges::any_of(wide, isControl) ? std::nullopt : toSystemText(wide);
}

std::string shownText(std::wstring_view wide) {
    std::string shown;
    for (std::size_t i = 0; i < wide.size(); ++i) {
        const wchar_t unit = wide[i];
        if (auto text = toFileName(wide.substr(i, 1)); text) {
            shown += *text;
        } else if (isHighSurrogate(unit) && i + 1 < wide.size() && isLowSurrogate(wide[i + 1])) {
            ++i;
            shown += shownByNumber(0x10000U + ((unit & 0x3FFU) << 10U) + (wide[i] & 0x3FFU));
        } else {
            shown += shownByNumber(unit);
        }
    }
    return shown;
}

std::optional<std::string> toSystemPath(const std::wstring& path) {
    if (auto text = toSystemText(path); text) {
        return text;
    }
    if (auto text = toSystemText(shortened(path)); text && !text->empty()) {
        return text;
    }
    // A file that is yet to be made has no short name, but its folder may.
    const auto name = path.rfind(L'\\') + 1; // 0 without a folder
    const auto folder = toSystemText(shortened(path.substr(0, name)));
    const auto file = toFileName(path.substr(name));
    if (!folder || folder->empty() || !file) {
        return std::nullopt;
    }
    return joinPath(*folder, *file);
}

std::string pathText(const std::wstring& path) {
    auto text = toSystemPath(path);
    return text ? *std::move(text) : shownText(path);
}

std::string matchingText(std::wstring_view wide) {
    std::string text;
    for (std::size_t i = 0; i < wide.size(); ++i) {
        text += toFileName(wide.substr(i, 1)).value_or("\x01");
    }
    return text;
}

} // namespace tarnwick
