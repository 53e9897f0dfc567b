// A window with as many controls as its command line says, of the ordinary kinds, and nothing else:
// what a program takes to show itself at the very least.

#include <windows.h>

#include <array>
#include <cstdlib>

namespace {

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) {
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

void makeControls(HWND window, HINSTANCE instance, long count) {
    constexpr std::array<const char*, 4> kinds{"BUTTON", "STATIC", "EDIT", "LISTBOX"};
    constexpr int columns = 8;
    constexpr int width = 100;
    constexpr int height = 40;
    HGDIOBJ font = GetStockObject(DEFAULT_GUI_FONT);
    for (long i = 0; i < count; ++i) {
        HWND control = CreateWindowExA(0, kinds.at(static_cast<std::size_t>(i) % kinds.size()),
                                       "Control", WS_CHILD | WS_VISIBLE | WS_TABSTOP,
                                       i % columns * width, i / columns * height, width - 10,
                                       height - 10, window, nullptr, instance, nullptr);
        SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    }
}

} // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE /*previous*/, LPSTR commandLine, int /*show*/) {
    WNDCLASSA kind{};
    kind.lpfnWndProc = &procedure;
    kind.hInstance = instance;
    kind.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    kind.lpszClassName = "BareWindow";
    RegisterClassA(&kind);
    HWND window = CreateWindowExA(0, "BareWindow", "Bare", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                  CW_USEDEFAULT, 860, 600, nullptr, nullptr, instance, nullptr);
    makeControls(window, instance, std::strtol(commandLine, nullptr, 10));
    ShowWindow(window, SW_SHOWNORMAL);
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (IsDialogMessageA(window, &message) == FALSE) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
    return 0;
}
