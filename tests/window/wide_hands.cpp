// wide_hands TITLE type|paste NUMBER...: brings the characters of these numbers into the field of
// that window that has the focus, one key after the other or from the clipboard. Not every keyboard
// has them.

#include <windows.h>

#include <cstring>
#include <iostream>
#include <string>

namespace {

HWND fieldIn(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) != FALSE
               ? info.hwndFocus
               : nullptr;
}

bool putOnClipboard(const std::wstring& text) {
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    std::memcpy(GlobalLock(memory), text.c_str(), bytes);
    GlobalUnlock(memory);
    const bool done = OpenClipboard(nullptr) != FALSE && EmptyClipboard() != FALSE &&
                      SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
    return CloseClipboard() != FALSE && done;
}

} // namespace

int main(int count, char** arguments) {
    const std::string how = count > 3 ? arguments[2] : "";
    HWND window = count > 3 ? FindWindowA(nullptr, arguments[1]) : nullptr;
    HWND field = window == nullptr ? nullptr : fieldIn(window);
    if (field == nullptr) {
        std::cerr << "usage: wide_hands TITLE type|paste NUMBER...\n";
        return 1;
    }
    std::wstring text;
    for (int i = 3; i < count; ++i) {
        text += static_cast<wchar_t>(std::stoul(arguments[i], nullptr, 16));
    }
    if (how == "paste") {
        if (!putOnClipboard(text)) {
            return 1;
        }
        SendMessageW(field, WM_PASTE, 0, 0);
        return 0;
    }
    bool typed = true;
    for (const wchar_t character : text) { // through the message loop, as keys
        typed = PostMessageW(field, WM_CHAR, character, 1) != FALSE && typed;
    }
    return typed ? 0 : 1;
}
