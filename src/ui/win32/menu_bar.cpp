#include "ui/win32/menu_bar.hpp"

#include "platform/win32/system_text.hpp"

#include <cstddef>

namespace tarnwick {
namespace {

constexpr UINT firstId = 0x4000; // the controls of a dialog have small numbers

UINT stateOf(const MenuItem& item) noexcept {
    return item.enabled() ? MF_ENABLED : MF_GRAYED;
}

} // namespace

void MenuBar::show(HWND window, const std::vector<MenuItem*>& menu) {
    if (menu.empty()) {
        return;
    }
    window_ = window;
    HMENU bar = CreateMenu();
    fill(bar, menu);
    SetMenu(window, bar);
}

void MenuBar::fill(HMENU menu, const std::vector<MenuItem*>& items) {
    UINT position = 0;
    for (MenuItem* const item : items) {
        const UINT id = firstId + static_cast<UINT>(shown_.size());
        shown_.push_back({.menu = menu, .position = position++, .item = item});
        if (item->isSeparator()) {
            AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        } else if (item->items().empty()) {
            AppendMenuW(menu, MF_STRING | stateOf(*item), id, toWide(item->caption()).c_str());
        } else {
            HMENU below = CreatePopupMenu();
            fill(below, item->items());
            AppendMenuW(menu, MF_POPUP | stateOf(*item), reinterpret_cast<UINT_PTR>(below),
                        toWide(item->caption()).c_str());
        }
    }
}

void MenuBar::refresh() {
    for (const Shown& shown : shown_) {
        if (!shown.item->isSeparator()) {
            MENUITEMINFOW info{};
            info.cbSize = sizeof info;
            info.fMask = MIIM_STATE | MIIM_STRING;
            info.fState = shown.item->enabled() ? MFS_ENABLED : MFS_GRAYED;
            std::wstring caption = toWide(shown.item->caption());
            info.dwTypeData = caption.data();
            SetMenuItemInfoW(shown.menu, shown.position, TRUE, &info);
        }
    }
    if (window_ != nullptr) {
        DrawMenuBar(window_);
    }
}

bool MenuBar::choose(WORD id) const {
    const std::size_t index = std::size_t{id} - firstId;
    if (id < firstId || index >= shown_.size()) {
        return false;
    }
    shown_[index].item->userClicked();
    return true;
}

} // namespace tarnwick
