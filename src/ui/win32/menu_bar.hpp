#pragma once

#include "ui/forms/menu_item.hpp"

#include <windows.h>

#include <vector>

namespace tarnwick {

// Shows the menu of a form in the menu bar of its window.
class MenuBar {
  public:
    // Makes the bar; the window owns it. Nothing for an empty menu.
    void show(HWND window, const std::vector<MenuItem*>& menu);
    // Brings captions and enabled entries up to date.
    void refresh();
    // The user chose the entry of that number. Whether it is one of the menu's.
    [[nodiscard]] bool choose(WORD id) const;
    [[nodiscard]] bool empty() const noexcept { return shown_.empty(); }

  private:
    struct Shown {
        HMENU menu = nullptr; // that it stands in
        UINT position = 0;
        MenuItem* item = nullptr;
    };
    void fill(HMENU menu, const std::vector<MenuItem*>& items);

    HWND window_ = nullptr;
    std::vector<Shown> shown_; // the number of an entry is its place here, from firstId on
};

} // namespace tarnwick
