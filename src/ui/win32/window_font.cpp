#include "ui/win32/window_font.hpp"

#include "platform/win32/system_text.hpp"

#include <utility>

namespace tarnwick {

LOGFONTW fontOf(HWND window) noexcept {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)), // NOLINT
               sizeof font, &font);
    return font;
}

void OwnFont::show(HWND window, const Font& wanted) {
    if (wanted == Font{}) {
        return; // the system gives it the form's own
    }
    LOGFONTW description = fontOf(GetParent(window));
    if (!wanted.name.empty()) {
        const auto length = toWide(wanted.name).copy(description.lfFaceName, LF_FACESIZE - 1);
        description.lfFaceName[length] = L'\0';
        description.lfCharSet = DEFAULT_CHARSET;
        description.lfPitchAndFamily = FIXED_PITCH | FF_MODERN; // what is named stands in columns
    }
    if (wanted.points > 0) {
        constexpr int pointsPerInch = 72;
        const int dpi = static_cast<int>(GetDpiForWindow(window));
        description.lfHeight = -MulDiv(wanted.points, dpi, pointsPerInch);
    }
    GdiHandle<HFONT> font(CreateFontIndirectW(&description));
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
    font_ = std::move(font);
}

} // namespace tarnwick
