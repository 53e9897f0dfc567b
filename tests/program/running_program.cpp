#include "program/running_program.hpp"

#include "support/eventually.hpp"
#include "support/start_process.hpp"
#include "support/window_of_process.hpp"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace tarnwick::test {
namespace {

constexpr int messageTextId = 0xFFFF;

struct VisibleWindows {
    DWORD processId;
    std::vector<HWND> found;
};

BOOL CALLBACK addVisible(HWND window, LPARAM parameter) {
    auto& visible =
        *reinterpret_cast<VisibleWindows*>(parameter); // NOLINT: how the system passes it
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == visible.processId && IsWindowVisible(window) != 0) {
        visible.found.push_back(window);
    }
    return TRUE;
}

std::vector<HWND> visibleWindows(DWORD processId) {
    VisibleWindows visible{.processId = processId, .found = {}};
    EnumWindows(addVisible, reinterpret_cast<LPARAM>(&visible)); // NOLINT: as above
    return visible.found;
}

// For whoever must find out why the window did not come.
std::string whatIsShown(DWORD processId) {
    std::string text;
    for (const HWND window : visibleWindows(processId)) {
        text += "; it shows " + textOf(window) + ": " + messageOf(window);
    }
    return text;
}

std::wstring wide(const std::string& text) {
    std::wstring result(text.size(), L'\0');
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()),
                                           result.data(), static_cast<int>(result.size()));
    result.resize(static_cast<std::size_t>(length));
    return result;
}

} // namespace

RunningProgram::RunningProgram(const std::filesystem::path& program, const std::string& arguments)
    : RunningProgram(program, wide(arguments)) {}

RunningProgram::RunningProgram(const std::filesystem::path& program,
                               const std::wstring& arguments) {
    const auto started =
        startProcess({.commandLine = L'"' + program.wstring() + L"\" " + arguments});
    if (!started) {
        throw std::runtime_error("cannot start " + program.string());
    }
    CloseHandle(started->hThread);
    process_.reset(started->hProcess);
    processId_ = started->dwProcessId;
}

// Until it is gone it may have its files open, and whoever is started next could not read them.
RunningProgram::~RunningProgram() {
    end();
}

void RunningProgram::end() {
    TerminateProcess(process_.get(), 99);
    WaitForSingleObject(process_.get(), INFINITE);
}

unsigned RunningProgram::exitCode() {
    if (!eventually([&] { return hasEnded(); })) {
        throw std::runtime_error("the program does not end");
    }
    DWORD code = 0;
    GetExitCodeProcess(process_.get(), &code);
    return code;
}

bool RunningProgram::hasEnded() const {
    return WaitForSingleObject(process_.get(), 0) == WAIT_OBJECT_0;
}

HWND RunningProgram::window(const std::string& title) {
    HWND found = nullptr;
    bool isGone = false;
    static_cast<void>(eventually([&] {
        isGone = hasEnded();
        const auto windows = visibleWindows(processId_);
        const auto wanted = std::ranges::find(windows, title, textOf);
        found = wanted == windows.end() ? nullptr : *wanted;
        return found != nullptr || isGone;
    }));
    if (found == nullptr) {
        throw std::runtime_error("the program shows no window titled " + title +
                                 (isGone ? "; it has ended with " + std::to_string(exitCode())
                                         : whatIsShown(processId_)));
    }
    return found;
}

HWND RunningProgram::windowOfClass(const wchar_t* windowClass) const {
    HWND window = nullptr;
    if (!eventually([&] {
            window = windowOfProcess(processId_, windowClass);
            return window != nullptr;
        })) {
        throw std::runtime_error("the program has no window of the class");
    }
    return window;
}

std::string textOf(HWND window) {
    const auto length = SendMessageA(window, WM_GETTEXTLENGTH, 0, 0);
    std::vector<char> text(static_cast<std::size_t>(length) + 1);
    SendMessageA(window, WM_GETTEXT, text.size(),
                 reinterpret_cast<LPARAM>(text.data())); // NOLINT: how the system passes it
    return text.data();
}

std::string messageOf(HWND messageBox) {
    return textOf(GetDlgItem(messageBox, messageTextId));
}

void fill(HWND dialog, int control, const std::string& text) {
    const HWND field = GetDlgItem(dialog, control);
    SendMessageA(field, EM_SETSEL, 0, -1);
    for (const char character : text) {
        SendMessageA(field, WM_CHAR, static_cast<unsigned char>(character), 1);
    }
}

void press(HWND dialog, const std::string& caption) {
    const HWND button = FindWindowExA(dialog, nullptr, "Button", caption.c_str());
    if (button == nullptr) {
        throw std::runtime_error("no button " + caption);
    }
    PostMessageA(button, BM_CLICK, 0, 0);
    if (!eventually([&] { return IsWindow(dialog) == 0; })) {
        throw std::runtime_error("the window stays open");
    }
}

} // namespace tarnwick::test
