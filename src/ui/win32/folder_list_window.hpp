#pragma once

#include "ui/forms/folder_list.hpp"
#include "ui/win32/control_window.hpp"
#include "ui/win32/key_listener.hpp"
#include "ui/win32/program_icon.hpp"

#include <windows.h>

namespace tarnwick {

// A list box with the styles LBS_OWNERDRAWFIXED, LBS_HASSTRINGS and LBS_NOTIFY: each folder is
// drawn at its depth with the system's own picture of a folder, open or closed.
class FolderListWindow final : public ControlWindow {
  public:
    FolderListWindow(FolderList& folderList, HWND window)
        : ControlWindow(folderList, window), folderList_(folderList), keys_(*this) {}

    void changed(Property property) override;
    void notified(WORD code) override;
    void drawItem(const DRAWITEMSTRUCT& item) override;
    [[nodiscard]] bool isFocusNotice(WORD code) const noexcept override {
        return code == LBN_SETFOCUS || code == LBN_KILLFOCUS;
    }

  private:
    void fitResolution() override;
    void showItems();
    [[nodiscard]] int selected() const noexcept;

    FolderList& folderList_;
    KeyListener keys_;
    IconHandle closed_;
    IconHandle open_;
};

} // namespace tarnwick
