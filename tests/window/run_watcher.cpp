// Presses the buttons of the program's main window from outside, and watches a run in it: for the
// demo and the benchmarks.
//
//   run_watcher TITLE press CAPTION     presses the button or check box of that caption, without
//                                       waiting for what it starts
//   run_watcher TITLE watch SECONDS
//
// "watch" looks twenty times a second and prints a line for every change of what the window shows,
// until the run is over:
//
//   seconds|caption of the Close button|per cent, or "-" without a progress bar|status
//
// The status is 0; 1 where there is no such window or button; 3 where the time was up.

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <iomanip>
#include <iostream>
#include <string>
#include <string_view>

namespace {

constexpr int noWindow = 1;
constexpr int badUsage = 2;
constexpr int timeIsUp = 3;
constexpr UINT patience = 20000; // milliseconds

std::string textOf(HWND window) {
    std::string text(4096, '\0');
    DWORD_PTR length = 0;
    SendMessageTimeoutA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                        SMTO_NORMAL, patience, &length);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::string classOf(HWND window) {
    std::string name(256, '\0');
    name.resize(static_cast<std::size_t>(
        GetClassNameA(window, name.data(), static_cast<int>(name.size()))));
    return name;
}

HWND findChild(HWND window, const std::function<bool(HWND)>& wanted) {
    HWND child = GetWindow(window, GW_CHILD);
    while (child != nullptr && !wanted(child)) {
        child = GetWindow(child, GW_HWNDNEXT);
    }
    return child;
}

HWND findButton(HWND window, std::string_view caption) {
    return findChild(
        window, [&](HWND child) { return classOf(child) == "Button" && textOf(child) == caption; });
}

double seconds() {
    return static_cast<double>(GetTickCount64()) / 1000;
}

int press(HWND window, const char* caption) {
    HWND button = findButton(window, caption);
    return button != nullptr && PostMessageA(button, BM_CLICK, 0, 0) != 0 ? 0 : noWindow;
}

// What the window shows of a run.
class Watch {
  public:
    explicit Watch(HWND window)
        : window_(window),
          status_(ofClass("msctls_statusbar32")),
          progress_(ofClass("msctls_progress32")),
          close_(findChild(window, [](HWND child) {
              const std::string text = classOf(child) == "Button" ? textOf(child) : "";
              return text == "Close" || text == "Cancel";
          })) {}

    int untilTheEnd(double limit) {
        const double start = seconds();
        bool running = false;
        std::string last;
        while (seconds() - start < limit) {
            if (IsWindow(window_) == FALSE || IsWindowVisible(window_) == FALSE) {
                return noWindow;
            }
            const std::string button = textOf(close_);
            const std::string shown =
                std::string(button).append("|").append(percent()).append("|").append(
                    textOf(status_));
            if (shown != last) {
                std::cout << std::fixed << std::setprecision(1) << seconds() - start << '|' << shown
                          << '\n'
                          << std::flush; // now: somebody reads along
                last = shown;
            }
            if (running && button == "Close") {
                return 0;
            }
            running = running || button == "Cancel";
            Sleep(50);
        }
        return timeIsUp;
    }

  private:
    [[nodiscard]] HWND ofClass(std::string_view name) const {
        return findChild(window_, [&](HWND child) { return classOf(child) == name; });
    }

    [[nodiscard]] std::string percent() const {
        return IsWindowVisible(progress_) == FALSE
                   ? "-"
                   : std::to_string(SendMessageA(progress_, PBM_GETPOS, 0, 0));
    }

    HWND window_;
    HWND status_;
    HWND progress_;
    HWND close_;
};

} // namespace

int main(int count, char** arguments) {
    const std::string_view command = count == 4 ? arguments[2] : "";
    if (command != "press" && command != "watch") {
        std::cerr << "usage: run_watcher TITLE press CAPTION | watch SECONDS\n";
        return badUsage;
    }
    HWND window = FindWindowA(nullptr, arguments[1]);
    if (window == nullptr) {
        return noWindow;
    }
    return command == "press" ? press(window, arguments[3])
                              : Watch(window).untilTheEnd(std::stod(arguments[3]));
}
