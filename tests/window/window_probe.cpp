// window_probe TITLE: looks at another program's window with that title, as a person would, and
// prints a line for each of its controls in the order of the focus:
//
//   KIND NUMBER x y width height STATE... |text
//
// KIND is text, check, button, frame, label, list, combo, grid, status, progress or another window
// class; NUMBER counts the kind from 1; the place is in pixels of the screen; STATE has one word
// each of shown/hidden, on/off (whether it is enabled), ticked/unticked, focus/away, and in a list
// the numbers of entries and of selected ones, "bar" or "nobar" for its horizontal scroll bar and
// the number of its uppermost entry, in a text field the ends of its selection and the rows of
// pixels above and below its text.
//
// window_probe TITLE names: what a screen reader says of each control that can have the focus:
//
//   KIND NUMBER shown/hidden |name
//
// window_probe TITLE send MESSAGE WORD LONG: sends the window that message and prints the answer.
//
// The status 1 tells that there is no such window.

#include <windows.h>

#include <commctrl.h>
#include <oleacc.h>

#include <cstdlib>
#include <functional>
#include <iostream>
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
        const auto ask = [window](UINT message) { return SendMessageA(window, message, 0, 0); };
        std::cout << ' ' << ask(LB_GETCOUNT) << ' ' << ask(LB_GETSELCOUNT) << ' '
                  << (bar ? "bar" : "nobar") << ' ' << ask(LB_GETTOPINDEX);
    }
    if (kind == "text") {
        const LRESULT ends = SendMessageA(window, EM_GETSEL, 0, 0);
        RECT field{};
        RECT line{};
        GetWindowRect(window, &field);
        SendMessageA(window, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&line));
        MapWindowPoints(window, HWND_DESKTOP, reinterpret_cast<POINT*>(&line), 2);
        std::cout << ' ' << LOWORD(ends) << ' ' << HIWORD(ends) << ' ' << line.top - field.top
                  << ' ' << field.bottom - line.bottom;
    }
}

void printControl(HWND window, HWND focus, const std::string& kind, int number) {
    RECT place{};
    GetWindowRect(window, &place);
    const bool ticked = kind == "check" && SendMessageA(window, BM_GETCHECK, 0, 0) == BST_CHECKED;
    std::cout << kind << ' ' << number << ' ' << place.left << ' ' << place.top << ' '
              << place.right - place.left << ' ' << place.bottom - place.top
              << (IsWindowVisible(window) != FALSE ? " shown" : " hidden")
              << (IsWindowEnabled(window) != FALSE ? " on" : " off")
              << (ticked ? " ticked" : " unticked")
              << (window == focus || IsChild(window, focus) != FALSE ? " focus" : " away");
    printContents(kind, window);
    std::cout << " |" << textOf(window) << '\n';
}

std::string nameOf(HWND window) {
    IAccessible* object = nullptr;
    if (AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                   reinterpret_cast<void**>(&object)) != S_OK) {
        return "no object";
    }
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    BSTR wide = nullptr;
    std::string name;
    if (object->get_accName(self, &wide) == S_OK && wide != nullptr) {
        name.assign(wide, wide + SysStringLen(wide));
    }
    SysFreeString(wide);
    object->Release();
    return name;
}

void printName(HWND window, const std::string& kind, int number) {
    if ((GetWindowLongPtrA(window, GWL_STYLE) & WS_TABSTOP) != 0) {
        std::cout << kind << ' ' << number
                  << (IsWindowVisible(window) != FALSE ? " shown |" : " hidden |") << nameOf(window)
                  << '\n';
    }
}

void forEachControl(HWND window, const std::function<void(HWND, const std::string&, int)>& print) {
    std::map<std::string, int> numbers;
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        const std::string kind = kindOf(child);
        print(child, kind, ++numbers[kind]);
    }
}

} // namespace

int main(int count, char** arguments) {
    const std::string what = count > 2 ? arguments[2] : "";
    const bool known =
        what.empty() || (what == "names" && count == 3) || (what == "send" && count == 6);
    if (count < 2 || !known) {
        std::cerr << "usage: window_probe TITLE [names | send MESSAGE WORD LONG]\n";
        return 2;
    }
    HWND window = FindWindowA(nullptr, arguments[1]);
    if (window == nullptr) {
        return 1;
    }
    if (what == "send") {
        const auto number = [&](int at) { return std::strtoll(arguments[at], nullptr, 0); };
        const LRESULT answer =
            SendMessageA(window, static_cast<UINT>(number(3)), static_cast<WPARAM>(number(4)),
                         static_cast<LPARAM>(number(5)));
        std::cout << answer << '\n';
    } else if (what == "names") {
        CoInitialize(nullptr);
        forEachControl(window, printName);
        CoUninitialize();
    } else {
        HWND focus = focusOf(window);
        forEachControl(window, [focus](HWND child, const std::string& kind, int number) {
            printControl(child, focus, kind, number);
        });
    }
    return 0;
}
