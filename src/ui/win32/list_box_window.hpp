#pragma once

#include "ui/forms/list_box.hpp"
#include "ui/win32/control_window.hpp"
#include "ui/win32/key_listener.hpp"

#include <vector>

namespace tarnwick {

// A list box with the styles LBS_EXTENDEDSEL and LBS_NOTIFY.
class ListBoxWindow final : public ControlWindow {
  public:
    ListBoxWindow(ListBox& listBox, HWND window)
        : ControlWindow(listBox, window), listBox_(listBox), keys_(*this) {}

    void changed(Property property) override;
    void notified(WORD code) override;
    void keyPressed(int keyCode) override;
    [[nodiscard]] bool isFocusNotice(WORD code) const noexcept override {
        return code == LBN_SETFOCUS || code == LBN_KILLFOCUS;
    }

  private:
    [[nodiscard]] int ask(UINT message) const noexcept;
    void fitResolution() override;
    void showItems();
    void showSelection();
    [[nodiscard]] std::vector<int> selection() const;

    ListBox& listBox_;
    KeyListener keys_;
};

} // namespace tarnwick
