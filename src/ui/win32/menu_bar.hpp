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
    // The user chose the entry of that number; nothing when it is none of the menu's.
    void choose(WORD id) const;

  private:
    void fill(HMENU menu, const std::vector<MenuItem*>& items);

    std::vector<MenuItem*> shown_; // the number of an entry is its place here, from firstId on
};

} // namespace tarnwick
