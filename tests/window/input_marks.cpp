#include "window/input_marks.hpp"

#include <chrono>
#include <condition_variable>
#include <future>
#include <mutex>
#include <utility>

namespace tarnwick::probe {
namespace {

// The system's callback carries no pointer of ours.
struct Last {
    std::mutex mutex;
    std::condition_variable changed;
    DWORD key = 0;
};
Last& last() {
    static Last instance;
    return instance;
}

LRESULT CALLBACK keyboard(int code, WPARAM message, LPARAM data) {
    const auto& key = *reinterpret_cast<const KBDLLHOOKSTRUCT*>(data); // NOLINT(*-int-to-ptr)
    if (code != HC_ACTION || (key.vkCode != VK_F11 && key.vkCode != VK_F12)) {
        return CallNextHookEx(nullptr, code, message, data);
    }
    if (message == WM_KEYUP || message == WM_SYSKEYUP) {
        const std::scoped_lock lock(last().mutex);
        last().key = key.vkCode;
        last().changed.notify_all();
    }
    return 1;
}

void listen(std::promise<DWORD> ready) {
    HHOOK hook = SetWindowsHookExW(WH_KEYBOARD_LL, keyboard, GetModuleHandleW(nullptr), 0);
    MSG message{};
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE); // makes the queue
    ready.set_value(GetCurrentThreadId());
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    }
    UnhookWindowsHookEx(hook);
}

} // namespace

InputMarks::InputMarks() {
    std::promise<DWORD> ready;
    std::future<DWORD> number = ready.get_future();
    thread_ = std::thread(listen, std::move(ready));
    threadNumber_ = number.get();
}

InputMarks::~InputMarks() {
    PostThreadMessageW(threadNumber_, WM_QUIT, 0, 0);
    thread_.join();
}

bool InputMarks::wait(DWORD key) const {
    using namespace std::chrono_literals;
    std::unique_lock lock(last().mutex);
    return last().changed.wait_for(lock, 200ms, [key] { return last().key == key; });
}

} // namespace tarnwick::probe
