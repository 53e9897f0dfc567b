// window_probe TITLE: looks at another program's window with that title, as a person would, and
// prints a line for each of its controls in the order of the focus:
//
//   KIND NUMBER x y width height STATE... |text
//
// KIND is text, check, button, frame, label, list, combo, grid, status, progress or another window
// class; NUMBER counts the kind from 1; the place is in pixels of the screen; STATE has one word
// each of shown/hidden, on/off (whether it is enabled), ticked/unticked, focus/away, and in a list
// the numbers of entries and of selected ones and "bar" or "nobar" for its horizontal scroll bar,
// in a text field the ends of its selection. The status 1 tells that there is no such window.

#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <map>
#include <string>

namespace {

std::string textOf(HWND window) {
    std::string text(4096, '\0');
    const LRESULT length =
        SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::string kindOfButton(HWND window) {
    switch (GetWindowLongPtrA(window, GWL_STYLE) & BS_TYPEMASK) {
    case BS_GROUPBOX:
        return "frame";
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
        return "check";
    default:
        return "button";
    }
}

std::string kindOf(HWND window) {
    static const std::map<std::string, std::string> kinds{{"Edit", "text"},
                                                          {"Static", "label"},
                                                          {"ListBox", "list"},
                                                          {"ComboBox", "combo"},
                                                          {"TarnwickGrid", "grid"},
                                                          {"msctls_statusbar32", "status"},
                                                          {"msctls_progress32", "progress"}};
    std::string name(256, '\0');
    const int length = GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    name.resize(static_cast<std::size_t>(length));
    if (name == "Button") {
        return kindOfButton(window);
    }
    const auto kind = kinds.find(name);
    return kind == kinds.end() ? name : kind->second;
}

HWND focusOf(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) != 0 ? info.hwndFocus
                                                                                   : nullptr;
}

void printContents(const std::string& kind, HWND window) {
    if (kind == "list") {
        const bool bar = (GetWindowLongPtrA(window, GWL_STYLE) & WS_HSCROLL) != 0;
        std::printf(" %d %d %s", static_cast<int>(SendMessageA(window, LB_GETCOUNT, 0, 0)),
                    static_cast<int>(SendMessageA(window, LB_GETSELCOUNT, 0, 0)),
                    bar ? "bar" : "nobar");
    }
    if (kind == "text") {
        const LRESULT ends = SendMessageA(window, EM_GETSEL, 0, 0);
        std::printf(" %d %d", LOWORD(ends), HIWORD(ends));
    }
}

void printControl(HWND window, HWND focus, std::map<std::string, int>& numbers) {
    const std::string kind = kindOf(window);
    RECT place{};
    GetWindowRect(window, &place);
    const bool ticked = kind == "check" && SendMessageA(window, BM_GETCHECK, 0, 0) == BST_CHECKED;
    std::printf("%s %d %ld %ld %ld %ld %s %s %s %s", kind.c_str(), ++numbers[kind], place.left,
                place.top, place.right - place.left, place.bottom - place.top,
                IsWindowVisible(window) != FALSE ? "shown" : "hidden",
                IsWindowEnabled(window) != FALSE ? "on" : "off", ticked ? "ticked" : "unticked",
                window == focus || IsChild(window, focus) != FALSE ? "focus" : "away");
    printContents(kind, window);
    std::printf(" |%s\n", textOf(window).c_str());
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: window_probe TITLE\n", stderr);
        return 2;
    }
    const HWND window = FindWindowA(nullptr, arguments[1]);
    if (window == nullptr) {
        return 1;
    }
    const HWND focus = focusOf(window);
    std::map<std::string, int> numbers;
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        printControl(child, focus, numbers);
    }
    return 0;
}
