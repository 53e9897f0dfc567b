#pragma once

#include "ui/forms/combo_box.hpp"
#include "ui/forms/drive_list.hpp"
#include "ui/win32/control_window.hpp"

#include <functional>
#include <string>
#include <vector>

namespace tarnwick {

// What the two below have in common.
class DropDownWindow : public ControlWindow {
  public:
    using ControlWindow::ControlWindow;

    [[nodiscard]] bool isFocusNotice(WORD code) const noexcept override {
        return code == CBN_SETFOCUS || code == CBN_KILLFOCUS;
    }

  protected:
    void showItems(const std::vector<std::string>& items);
    // Whether it is one of the items.
    bool pick(const std::string& item);
    [[nodiscard]] int picked() const noexcept;
};

// A combo box with the style CBS_DROPDOWN.
class ComboBoxWindow final : public DropDownWindow {
  public:
    ComboBoxWindow(ComboBox& comboBox, HWND window)
        : DropDownWindow(comboBox, window), comboBox_(comboBox) {}

    void changed(Property property) override;
    void resolutionChanged() override;
    void notified(WORD code) override;

  private:
    void showText();
    void edited();
    void keepingText(const std::function<void()>& resize);
    void unmark() { SendMessageW(window(), CB_SETEDITSEL, 0, MAKELPARAM(0, 0)); }
    // The window to type into; null where the system does not say.
    [[nodiscard]] HWND field() const noexcept;

    ComboBox& comboBox_;
};

// A combo box with the style CBS_DROPDOWNLIST.
class DriveListWindow final : public DropDownWindow {
  public:
    DriveListWindow(DriveList& driveList, HWND window)
        : DropDownWindow(driveList, window), driveList_(driveList) {}

    void changed(Property property) override;
    void notified(WORD code) override;

  private:
    DriveList& driveList_;
};

} // namespace tarnwick
