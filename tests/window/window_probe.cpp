// window_probe serve: looks at other programs' windows as a person would, and answers requests
// about them for as long as somebody asks. A request is a line of words with tabs between them; the
// answer is some lines and then a line "."; all of it is UTF-8, and a line's end within a text is "
// / ".
//
//   look TITLE         a line for each control of that window, in the order of the focus:
//
//       NAME KIND x y width height STATE... |text
//
//     NAME is the control's name in the resource, or "-"; KIND is text, check, button, frame,
//     label, list, combo, grid, status, progress or another window class; the place is in pixels of
//     the screen; STATE has one word each of shown/hidden, on/off (whether it is enabled),
//     ticked/unticked, focus/away, and in a list the numbers of entries and of selected ones, "bar"
//     or "nobar" for its horizontal scroll bar and the number of its uppermost entry, in a text
//     field the ends of its selection and the rows of pixels above and below its text, in a
//     progress bar how far it is.
//   names TITLE        what a screen reader says of each control that can have the focus:
//
//       NAME KIND shown/hidden |name
//
//   count TITLE        how many windows with that title are shown
//   front TITLE        "yes" when the keyboard is in that window; else "no"
//   away               "yes" when the keyboard is in no window of any program here
//   place TITLE        "x y right bottom" of that window with its frame, in pixels of the screen
//   iconic TITLE       "yes" when that window is an icon
//   settled F11|F12    waits a moment for that key, which the caller has sent behind other keys and
//                      clicks, and then until the program has dealt with those. The answer is
//                      "yes NUMBER", with the screen's own number of the window that has the
//                      keyboard then, or "no". The programs never see these two keys.
//   listen             hears from now on what programs tell a screen reader
//   heard TITLE        what it has heard of that window's controls since it was asked last:
//
//       KIND NAME CHILD
//
//     KIND is focus, name or state (which have changed); CHILD is the number of a part of the
//     control, 0 for the control as a whole
//   idle               waits until the programs have dealt with all that they know of
//
// Where there is no such window, the answer to "look" and "names" is "no window".
//
// window_probe TITLE send MESSAGE WORD LONG: sends that window a message and prints the answer.
// The status 1 tells that there is no such window.

#include "window/control_texts.hpp"
#include "window/heard_events.hpp"
#include "window/input_marks.hpp"

#include <windows.h>

#include <commctrl.h>
#include <fcntl.h>
#include <io.h>
#include <oleacc.h>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace {

using tarnwick::probe::HeardEvents;
using tarnwick::probe::InputMarks;
using tarnwick::probe::kindOf;
using tarnwick::probe::namesOfControls;
using tarnwick::probe::textOf;
using tarnwick::probe::utf16;
using tarnwick::probe::utf8;

HWND focusOf(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) != 0 ? info.hwndFocus
                                                                                   : nullptr;
}

std::vector<HWND> shownWindows() {
    std::vector<HWND> windows;
    EnumWindows(
        [](HWND window, LPARAM all) -> BOOL {
            if (IsWindowVisible(window) != FALSE) {
                auto& found = *reinterpret_cast<std::vector<HWND>*>(all); // NOLINT(*-int-to-ptr)
                found.push_back(window);
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

void printContents(const std::string& kind, HWND window) {
    const auto ask = [window](UINT message) { return SendMessageW(window, message, 0, 0); };
    if (kind == "list") {
        const bool bar = (GetWindowLongPtrW(window, GWL_STYLE) & WS_HSCROLL) != 0;
        std::cout << ' ' << ask(LB_GETCOUNT) << ' ' << ask(LB_GETSELCOUNT) << ' '
                  << (bar ? "bar" : "nobar") << ' ' << ask(LB_GETTOPINDEX);
    }
    if (kind == "text") {
        const LRESULT ends = ask(EM_GETSEL);
        RECT field{};
        RECT line{};
        GetWindowRect(window, &field);
        SendMessageW(window, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&line));
        MapWindowPoints(window, HWND_DESKTOP, reinterpret_cast<POINT*>(&line), 2);
        std::cout << ' ' << LOWORD(ends) << ' ' << HIWORD(ends) << ' ' << line.top - field.top
                  << ' ' << field.bottom - line.bottom;
    }
    if (kind == "progress") {
        std::cout << ' ' << ask(PBM_GETPOS);
    }
}

void printControl(HWND window, HWND focus, const std::string& name, const std::string& kind) {
    RECT place{};
    GetWindowRect(window, &place);
    const bool ticked = kind == "check" && SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED;
    std::cout << name << ' ' << kind << ' ' << place.left << ' ' << place.top << ' '
              << place.right - place.left << ' ' << place.bottom - place.top
              << (IsWindowVisible(window) != FALSE ? " shown" : " hidden")
              << (IsWindowEnabled(window) != FALSE ? " on" : " off")
              << (ticked ? " ticked" : " unticked")
              << (window == focus || IsChild(window, focus) != FALSE ? " focus" : " away");
    printContents(kind, window);
    std::cout << " |" << textOf(window) << '\n';
}

std::string accessibleNameOf(HWND window) {
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
        name = utf8({wide, SysStringLen(wide)});
    }
    SysFreeString(wide);
    object->Release();
    return name;
}

void printName(HWND window, const std::string& name, const std::string& kind) {
    if ((GetWindowLongPtrW(window, GWL_STYLE) & WS_TABSTOP) != 0) {
        std::cout << name << ' ' << kind
                  << (IsWindowVisible(window) != FALSE ? " shown |" : " hidden |")
                  << accessibleNameOf(window) << '\n';
    }
}

using Print = std::function<void(HWND, const std::string& name, const std::string& kind)>;

void forEachControl(const std::string& title, const Print& print) {
    HWND window = FindWindowW(nullptr, utf16(title).c_str());
    if (window == nullptr) {
        std::cout << "no window\n";
        return;
    }
    const std::map<HWND, std::string> names = namesOfControls(window);
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        const auto name = names.find(child);
        print(child, name == names.end() ? "-" : name->second, kindOf(child));
    }
}

int countOf(const std::string& title) {
    int count = 0;
    for (HWND window : shownWindows()) {
        count += textOf(window) == title ? 1 : 0;
    }
    return count;
}

bool isInFront(const std::string& title) {
    HWND front = GetForegroundWindow();
    HWND focus = front == nullptr ? nullptr : focusOf(front);
    return focus != nullptr && (focus == front || IsChild(front, focus) != FALSE) &&
           textOf(front) == title;
}

// A window is asked to paint itself when nothing else is left for its thread to do.
void waitForPaint(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_NOCHILDREN);
    while (IsWindowVisible(window) != FALSE && IsIconic(window) == FALSE &&
           GetUpdateRect(window, nullptr, FALSE) != FALSE) {
        Sleep(1);
    }
}

// Twice: what it did at last may have given it more to do.
void waitUntilIdle() {
    for (int round = 0; round < 2; ++round) {
        std::set<DWORD> threads;
        for (HWND window : shownWindows()) {
            if (threads.insert(GetWindowThreadProcessId(window, nullptr)).second) {
                waitForPaint(window);
            }
        }
    }
}

void waitUntilSettled(const InputMarks& marks, const std::string& key) {
    if (!marks.wait(key == "F11" ? VK_F11 : VK_F12)) {
        std::cout << "no\n";
        return;
    }
    waitUntilIdle();
    HWND front = GetForegroundWindow();
    std::cout << "yes "
              << reinterpret_cast<std::intptr_t>(GetPropA(front, "__wine_x11_whole_window"))
              << '\n';
}

const char* nameOf(const HeardEvents::Event& event) {
    switch (event.kind) {
    case EVENT_OBJECT_FOCUS:
        return "focus";
    case EVENT_OBJECT_NAMECHANGE:
        return "name";
    default:
        return "state";
    }
}

void printHeard(const std::vector<HeardEvents::Event>& events, const std::string& title) {
    const std::map<HWND, std::string> names =
        namesOfControls(FindWindowW(nullptr, utf16(title).c_str()));
    for (const HeardEvents::Event& event : events) {
        const auto itself = names.find(event.window);
        const auto control = itself != names.end() ? itself : names.find(GetParent(event.window));
        if (control != names.end()) { // else it is of another window
            std::cout << nameOf(event) << ' ' << control->second << ' ' << event.child << '\n';
        }
    }
}

std::vector<std::string> wordsOf(const std::string& line) {
    std::vector<std::string> words(1);
    for (const char character : line) {
        if (character == '\t') {
            words.emplace_back();
        } else {
            words.back() += character;
        }
    }
    return words;
}

void print(bool yes) {
    std::cout << (yes ? "yes\n" : "no\n");
}

// What the probe has besides its eyes, while it serves.
struct Senses {
    InputMarks marks;
    std::optional<HeardEvents> events; // once it was told to listen
};

void answer(const std::string& what, const std::string& about, Senses& senses) {
    if (what == "look") {
        HWND window = FindWindowW(nullptr, utf16(about).c_str());
        HWND focus = window == nullptr ? nullptr : focusOf(window);
        forEachControl(about,
                       [focus](HWND child, const std::string& name, const std::string& kind) {
                           printControl(child, focus, name, kind);
                       });
    } else if (what == "names") {
        forEachControl(about, printName);
    } else if (what == "count") {
        std::cout << countOf(about) << '\n';
    } else if (what == "front") {
        print(isInFront(about));
    } else if (what == "away") {
        HWND front = GetForegroundWindow();
        print(front == nullptr || front == GetDesktopWindow());
    } else if (what == "place") {
        RECT place{};
        GetWindowRect(FindWindowW(nullptr, utf16(about).c_str()), &place);
        std::cout << place.left << ' ' << place.top << ' ' << place.right << ' ' << place.bottom
                  << '\n';
    } else if (what == "iconic") {
        print(IsIconic(FindWindowW(nullptr, utf16(about).c_str())) != FALSE);
    } else if (what == "settled") {
        waitUntilSettled(senses.marks, about);
    } else if (what == "listen") {
        if (!senses.events) {
            senses.events.emplace();
        }
        static_cast<void>(senses.events->take());
    } else if (what == "heard") {
        printHeard(senses.events.value().take(), about);
    } else if (what == "idle") {
        waitUntilIdle();
    } else {
        std::cout << "no such request\n";
    }
}

int serve() {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    CoInitialize(nullptr);
    Senses senses;
    std::string line;
    while (std::getline(std::cin, line)) {
        std::vector<std::string> words = wordsOf(line);
        words.resize(2);
        answer(words[0], words[1], senses);
        std::cout << ".\n" << std::flush;
    }
    CoUninitialize();
    return 0;
}

int send(char** arguments) {
    HWND window = FindWindowA(nullptr, arguments[1]);
    if (window == nullptr) {
        return 1;
    }
    const auto number = [&](int at) { return std::strtoll(arguments[at], nullptr, 0); };
    std::cout << SendMessageA(window, static_cast<UINT>(number(3)), static_cast<WPARAM>(number(4)),
                              static_cast<LPARAM>(number(5)))
              << '\n';
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    if (count == 2 && std::string(arguments[1]) == "serve") {
        return serve();
    }
    if (count == 6 && std::string(arguments[2]) == "send") {
        return send(arguments);
    }
    std::cerr << "usage: window_probe serve | window_probe TITLE send MESSAGE WORD LONG\n";
    return 2;
}
