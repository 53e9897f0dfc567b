#include "platform/win32/win32_interruptions.hpp"

#include "platform/win32/errors.hpp"

#include <windows.h>

#include <mutex>
#include <utility>

namespace tarnwick {
namespace {

// The system calls a function that knows of no object: who listens, if anybody.
struct Listener {
    std::mutex guard;
    std::function<void(Interruption)> heard;

    bool tell(Interruption interruption) {
        const std::scoped_lock lock(guard);
        if (heard) {
            heard(interruption);
        }
        return static_cast<bool>(heard);
    }
};

Listener& listener() {
    static Listener only;
    return only;
}

BOOL WINAPI handleControl(DWORD control) {
    const bool isAsked = control == CTRL_C_EVENT || control == CTRL_BREAK_EVENT;
    if (!listener().tell(isAsked ? Interruption::Asked : Interruption::Ordered)) {
        return FALSE;
    }
    if (!isAsked) {
        Sleep(INFINITE); // as soon as this returned, the system would end the process
    }
    return TRUE;
}

LRESULT CALLBACK handleMessage(HWND window, UINT message, WPARAM word, LPARAM data) {
    if (message == WM_ENDSESSION && word != 0) {
        listener().tell(Interruption::Ordered);
        // As soon as this returned, the system would end the process.
        auto* gone = reinterpret_cast<HANDLE>( // NOLINT(performance-no-int-to-ptr)
            GetWindowLongPtrW(window, GWLP_USERDATA));
        WaitForSingleObject(gone, INFINITE);
        return 0;
    }
    return DefWindowProcW(window, message, word, data);
}

// Shows a window to nobody but the system, until `gone` is set.
void waitForEndOfSession(HANDLE gone) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = handleMessage;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = Win32Interruptions::windowClass;
    RegisterClassW(&windowClass);
    HWND window = CreateWindowExW(0, Win32Interruptions::windowClass, L"", WS_OVERLAPPED, 0, 0, 0,
                                  0, nullptr, nullptr, windowClass.hInstance, nullptr);
    if (window == nullptr) { // where no screen is, nobody logs off either
        return;
    }
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(gone));
    while (MsgWaitForMultipleObjects(1, &gone, FALSE, INFINITE, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
            DispatchMessageW(&message);
        }
    }
    DestroyWindow(window);
}

} // namespace

Win32Interruptions::Win32Interruptions()
    : gone_(required(CreateEventW(nullptr, TRUE, FALSE, nullptr))) {}

Win32Interruptions::~Win32Interruptions() {
    SetConsoleCtrlHandler(handleControl, FALSE);
    {
        const std::scoped_lock lock(listener().guard);
        listener().heard = nullptr;
    }
    SetEvent(gone_.get());
}

void Win32Interruptions::listen(std::function<void(Interruption)> heard) {
    {
        const std::scoped_lock lock(listener().guard);
        listener().heard = std::move(heard);
    }
    SetConsoleCtrlHandler(handleControl, TRUE);
    ofSession_ = std::jthread([gone = gone_.get()] { waitForEndOfSession(gone); });
}

} // namespace tarnwick
