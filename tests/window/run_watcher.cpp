// Presses the buttons of the program's main window from outside, and watches a run in it.
//
//   run_watcher TITLE press CAPTION     presses the button or check box of that caption, without
//                                       waiting for what it starts
//   run_watcher TITLE click CAPTION     the same, and prints after how many milliseconds the window
//                                       had dealt with it
//   run_watcher TITLE watch SECONDS [STATUS]
//
// "watch" looks twenty times a second and prints a line for every change of what the window shows:
//
//   seconds|caption of the Close button|per cent, or "-" without a progress bar|status
//
// and at the end "answers N slow M": how often it asked the window for a sign of life, and how
// often that took longer than a tenth of a second. It ends with the run, or with a status that
// begins with STATUS.
//
// The status is 0; 1 where there is no such window or button; 3 where the time was up.

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <iomanip>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

namespace {

constexpr int noWindow = 1;
constexpr int badUsage = 2;
constexpr int timeIsUp = 3;
constexpr UINT aTenth = 100; // milliseconds
constexpr UINT patience = 20000;

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

int click(HWND window, const char* caption) {
    HWND button = findButton(window, caption);
    if (button == nullptr) {
        return noWindow;
    }
    const double start = seconds();
    DWORD_PTR ignored = 0;
    if (SendMessageTimeoutA(button, BM_CLICK, 0, 0, SMTO_NORMAL, patience, &ignored) == 0) {
        return timeIsUp;
    }
    std::cout << std::fixed << std::setprecision(0) << (seconds() - start) * 1000 << '\n';
    return 0;
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

    int until(double limit, const std::optional<std::string>& awaited) {
        const int result = watch(limit, awaited);
        std::cout << "answers " << answers_ << " slow " << slow_ << '\n';
        return result;
    }

  private:
    [[nodiscard]] HWND ofClass(std::string_view name) const {
        return findChild(window_, [&](HWND child) { return classOf(child) == name; });
    }

    int watch(double limit, const std::optional<std::string>& awaited) {
        const double start = seconds();
        bool running = false;
        std::string last;
        while (seconds() - start < limit) {
            askForLife();
            if (IsWindow(window_) == FALSE || IsWindowVisible(window_) == FALSE) {
                return noWindow;
            }
            const std::string button = textOf(close_);
            const std::string status = textOf(status_);
            const std::string shown =
                std::string(button).append("|").append(percent()).append("|").append(status);
            if (shown != last) {
                std::cout << std::fixed << std::setprecision(1) << seconds() - start << '|' << shown
                          << '\n'
                          << std::flush; // now: somebody reads along
                last = shown;
            }
            if (awaited ? status.starts_with(*awaited) : running && button == "Close") {
                return 0;
            }
            running = running || button == "Cancel";
            Sleep(50);
        }
        return timeIsUp;
    }

    void askForLife() {
        DWORD_PTR ignored = 0;
        const double start = seconds();
        SendMessageTimeoutA(window_, WM_NULL, 0, 0, SMTO_NORMAL, patience, &ignored);
        ++answers_;
        slow_ += (seconds() - start) * 1000 > aTenth ? 1 : 0;
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
    int answers_ = 0;
    int slow_ = 0;
};

} // namespace

int main(int count, char** arguments) {
    const std::string_view command = count >= 4 ? arguments[2] : "";
    HWND window = count >= 4 ? FindWindowA(nullptr, arguments[1]) : nullptr;
    if (count >= 4 && window == nullptr) {
        return noWindow;
    }
    if (command == "press" && count == 4) {
        return press(window, arguments[3]);
    }
    if (command == "click" && count == 4) {
        return click(window, arguments[3]);
    }
    if (command == "watch" && count <= 5) {
        const std::optional<std::string> awaited =
            count == 5 ? std::optional<std::string>(arguments[4]) : std::nullopt;
        return Watch(window).until(std::stod(arguments[3]), awaited);
    }
    std::cerr << "usage: run_watcher TITLE press|click CAPTION | watch SECONDS [STATUS]\n";
    return badUsage;
}
