#include "ui/win32/list_box_window.hpp"

#include "ui/forms/keys.hpp"
#include "ui/win32/gdi_handle.hpp"
#include "ui/win32/redraw_pause.hpp"
#include "ui/win32/view_messages.hpp"
#include "ui/win32/window_text.hpp"

#include <algorithm>
#include <cstddef>

namespace tarnwick {
namespace {

// The number of the wide character for that byte; 0 where it is none by itself.
UINT numberOf(std::size_t byte) {
    const auto wide = toWide(std::string(1, static_cast<char>(byte)));
    return wide.size() == 1 ? wide.front() : 0U;
}

} // namespace

int ListBoxWindow::ask(UINT message) const noexcept {
    return static_cast<int>(SendMessageW(window(), message, 0, 0));
}

// Measures the characters.
void ListBoxWindow::fitResolution() {
    const WindowContext context(window());
    const Selected font(context.get(),
                        pointerIn<HGDIOBJ>(SendMessageW(window(), WM_GETFONT, 0, 0)));
    CharacterWidths widths{};
    // The characters of the code page are not in the order of their numbers.
    for (std::size_t first = 0; first < widths.size();) {
        const UINT number = numberOf(first);
        std::size_t count = 1;
        while (first + count < widths.size() && numberOf(first + count) == number + count) {
            ++count;
        }
        GetCharWidth32W(context.get(), number, number + static_cast<UINT>(count - 1),
                        widths.data() + first);
        first += count;
    }
    listBox_.measured(widths);
}

void ListBoxWindow::changed(Property property) {
    switch (property) {
    case Property::Items:
        showItems();
        break;
    case Property::Selection: {
        const RedrawPause pause(window());
        showSelection();
        break;
    }
    case Property::HorizontalExtent:
        SendMessageW(window(), LB_SETHORIZONTALEXTENT,
                     static_cast<WPARAM>(listBox_.horizontalExtent()), 0);
        break;
    case Property::AccessibleName:
        // Some systems read out the window's text, which nobody sees: so it is set as well.
        setWindowText(window(), listBox_.accessibleName());
        ControlWindow::changed(property);
        break;
    default:
        ControlWindow::changed(property);
        break;
    }
}

// All of them anew, and the user stays at the place in the list.
void ListBoxWindow::showItems() {
    constexpr std::size_t bytesOfMostNames = 64;
    const RedrawPause pause(window());
    const int top = ask(LB_GETTOPINDEX);
    const int caret = ask(LB_GETCARETINDEX);
    const std::vector<std::string>& items = listBox_.items();
    SendMessageW(window(), LB_RESETCONTENT, 0, 0);
    SendMessageW(window(), LB_INITSTORAGE, items.size(),
                 static_cast<LPARAM>(items.size() * bytesOfMostNames));
    for (const std::string& item : items) {
        SendMessageW(window(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(item).c_str()));
    }
    if (!items.empty()) {
        const int last = static_cast<int>(items.size()) - 1;
        const auto place = static_cast<WPARAM>(std::clamp(caret, 0, last));
        showSelection();
        SendMessageW(window(), LB_SETANCHORINDEX, place, 0); // from where Shift and an arrow mark
        SendMessageW(window(), LB_SETCARETINDEX, place, FALSE);
        SendMessageW(window(), LB_SETTOPINDEX, static_cast<WPARAM>(std::clamp(top, 0, last)), 0);
    }
}

// One message for each run of selected items.
void ListBoxWindow::showSelection() {
    SendMessageW(window(), LB_SETSEL, FALSE, -1);
    if (listBox_.selectedCount() == 0) {
        return;
    }
    const std::vector<bool>& selected = listBox_.selection();
    for (auto first = std::ranges::find(selected, true); first != selected.end();) {
        const auto end = std::find(first, selected.end(), false);
        const auto from = first - selected.begin();
        const auto to = end - selected.begin() - 1;
        if (from == to) {
            SendMessageW(window(), LB_SETSEL, TRUE, from);
        } else {
            SendMessageW(window(), LB_SELITEMRANGEEX, static_cast<WPARAM>(from), to);
        }
        first = std::find(end, selected.end(), true);
    }
}

std::vector<int> ListBoxWindow::selection() const {
    std::vector<int> indices(static_cast<std::size_t>(std::max(0, ask(LB_GETSELCOUNT))));
    const LRESULT count = SendMessageW(window(), LB_GETSELITEMS, indices.size(),
                                       reinterpret_cast<LPARAM>(indices.data()));
    indices.resize(static_cast<std::size_t>(std::max<LRESULT>(0, count)));
    return indices;
}

void ListBoxWindow::notified(WORD code) {
    if (code == LBN_SELCHANGE) {
        listBox_.userSelected(selection());
    } else if (code == LBN_DBLCLK) {
        listBox_.userDoubleClicked();
    }
}

void ListBoxWindow::keyPressed(int keyCode) {
    const bool control = GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0;
    if (keyCode == Key::a && control) {
        listBox_.userSelectedAll();
    }
}

} // namespace tarnwick
