// What the windows of single controls do, where a real one of Windows does more than that of Wine.

#include "ui/forms/combo_box.hpp"
#include "ui/forms/form.hpp"
#include "ui/forms/list_box.hpp"
#include "ui/win32/control_window.hpp"
#include "ui/win32/window_filter.hpp"
#include "ui/win32/window_text.hpp"

#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace tarnwick {
namespace {

// A window with one control in it; both go with it.
class Holder {
  public:
    Holder(const wchar_t* kind, DWORD style)
        : window_(CreateWindowExW(0, L"Static", L"", WS_OVERLAPPEDWINDOW, 0, 0, 300, 300, nullptr,
                                  nullptr, nullptr, nullptr)),
          control_(CreateWindowExW(0, kind, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 200, 100,
                                   window_, nullptr, nullptr, nullptr)) {}
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    ~Holder() { DestroyWindow(window_); }

    [[nodiscard]] HWND control() const noexcept { return control_; }

  private:
    HWND window_;
    HWND control_;
};

// Makes of Wine's combo box one of Windows: that takes a new size for a reason to complete its text
// by the first item that begins so, and to mark it.
class Completing final : private WindowFilter {
  public:
    explicit Completing(HWND window) noexcept : WindowFilter(window) {}
    [[nodiscard]] int times() const noexcept { return times_; }

  private:
    LRESULT filter(UINT message, WPARAM wParam, LPARAM lParam) noexcept override {
        const LRESULT result = pass(message, wParam, lParam);
        if (message == WM_SIZE) {
            ++times_;
            SendMessageW(
                window(), CB_SELECTSTRING, static_cast<WPARAM>(-1),
                reinterpret_cast<LPARAM>(toWide(windowText(window()).value_or("")).c_str()));
            SendMessageW(window(), CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
        }
        return result;
    }

    int times_ = 0;
};

TEST(ComboBoxWindow, A_new_size_neither_completes_its_text_nor_marks_it) {
    Form form("frmOne", "One");
    ComboBox box(form, "cboLanguage", {"English", "Spanish"});
    const Holder holder(L"ComboBox", CBS_DROPDOWN);
    const auto shown = makeControlWindow(box, holder.control());
    shown->showAll();
    const Completing completing(holder.control());
    box.setText("Spa");
    SendMessageW(holder.control(), CB_SETEDITSEL, 0, MAKELPARAM(1, 2));
    box.setBounds({.left = 0, .top = 0, .width = 2000, .height = 315});
    EXPECT_GT(completing.times(), 0);
    EXPECT_EQ(windowText(holder.control()), "Spa");
    EXPECT_EQ(SendMessageW(holder.control(), CB_GETEDITSEL, 0, 0), MAKELRESULT(1, 2));
}

TEST(ListBoxWindow, After_a_refill_keys_mark_from_where_the_user_is) {
    Form form("frmOne", "One");
    ListBox list(form, "lstFiles");
    const Holder holder(L"ListBox", LBS_EXTENDEDSEL | LBS_NOTIFY);
    const auto shown = makeControlWindow(list, holder.control());
    list.setItems({"a", "b", "c", "d", "e"});
    SendMessageW(holder.control(), LB_SETCARETINDEX, 3, FALSE);
    list.retain({true, false, true, true, true});
    EXPECT_EQ(SendMessageW(holder.control(), LB_GETCARETINDEX, 0, 0), 3);
    EXPECT_EQ(SendMessageW(holder.control(), LB_GETANCHORINDEX, 0, 0), 3);
}

} // namespace
} // namespace tarnwick
