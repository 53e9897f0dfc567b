#include "ui/win32/label_window.hpp"

#include "platform/win32/system_text.hpp"
#include "ui/win32/window_font.hpp"

#include <cstddef>
#include <utility>

namespace tarnwick {

void LabelWindow::changed(Property property) {
    if (property == Property::Font) {
        showFont();
    } else {
        CaptionedWindow::changed(property);
    }
}

void LabelWindow::resolutionChanged() {
    CaptionedWindow::resolutionChanged();
    showFont();
}

void LabelWindow::showFont() {
    const Font& wanted = label_.font();
    if (wanted == Font{}) {
        return; // the system gives it the form's own
    }
    LOGFONTW description = fontOf(GetParent(window()));
    if (!wanted.name.empty()) {
        const std::size_t length =
            toWide(wanted.name).copy(description.lfFaceName, LF_FACESIZE - 1);
        description.lfFaceName[length] = L'\0';
    }
    if (wanted.points > 0) {
        description.lfHeight = heightOfPoints(wanted.points, dpi());
    }
    GdiHandle<HFONT> font(CreateFontIndirectW(&description));
    SendMessageW(window(), WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
    font_ = std::move(font);
}

} // namespace tarnwick
