#include "ui/win32/refused_text.hpp"

#include <commctrl.h>

namespace tarnwick {

void tellRefused(HWND field) noexcept {
    MessageBeep(MB_ICONWARNING);
    EDITBALLOONTIP tip{};
    tip.cbStruct = sizeof tip;
    tip.pszTitle = L"Not taken";
    tip.pszText = L"The system's code page does not have this character.";
    tip.ttiIcon = TTI_WARNING;
    SendMessageW(field, EM_SHOWBALLOONTIP, 0, reinterpret_cast<LPARAM>(&tip));
}

} // namespace tarnwick
