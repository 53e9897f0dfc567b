#include "ui/win32/picture_window.hpp"

#include "platform/run_time_error.hpp"
#include "platform/win32/system_text.hpp"

#include <algorithm>
#include <utility>

namespace tarnwick {

void PictureWindow::fitResolution() {
    if (picture_.image().empty()) {
        return;
    }
    RECT area{};
    GetClientRect(window(), &area);
    const LONG size = std::min(area.right, area.bottom);
    IconHandle icon = loadIcon(toWide(picture_.image()), {.cx = size, .cy = size});
    if (icon == nullptr) {
        throw RunTimeError(ErrorNumber::InternalError);
    }
    SendMessageW(window(), STM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
    icon_ = std::move(icon);
}

} // namespace tarnwick
