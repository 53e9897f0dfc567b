#include "ui/win32/menu_bar.hpp"

#include "platform/win32/system_text.hpp"

#include <cstddef>

namespace tarnwick {
namespace {

constexpr UINT firstId = 0x4000; // the controls of a dialog have small numbers

} // namespace

void MenuBar::show(HWND window, const std::vector<MenuItem*>& menu) {
    if (menu.empty()) {
        return;
    }
    HMENU bar = CreateMenu();
    fill(bar, menu);
    SetMenu(window, bar);
}

void MenuBar::fill(HMENU menu, const std::vector<MenuItem*>& items) {
    for (MenuItem* const item : items) {
        const UINT id = firstId + static_cast<UINT>(shown_.size());
        shown_.push_back(item);
        if (item->isSeparator()) {
            AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        } else if (item->items().empty()) {
            AppendMenuW(menu, MF_STRING, id, toWide(item->caption()).c_str());
        } else {
            HMENU below = CreatePopupMenu();
            fill(below, item->items());
            AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(below),
                        toWide(item->caption()).c_str());
        }
    }
}

void MenuBar::choose(WORD id) const {
    const std::size_t index = std::size_t{id} - firstId;
    if (id >= firstId && index < shown_.size()) {
        shown_[index]->userClicked();
    }
}

} // namespace tarnwick
