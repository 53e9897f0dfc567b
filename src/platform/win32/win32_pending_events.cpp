#include "platform/win32/win32_pending_events.hpp"

#include <algorithm>
#include <cmath>

namespace tarnwick {

void Win32PendingEvents::letRun() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return; // it comes last, and would come again and again
        }
        if (filter_ == nullptr || !filter_->handles(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

void Win32PendingEvents::waitForEvent(double seconds) {
    constexpr double aDay = 86400;
    const auto milliseconds = std::ceil(std::clamp(seconds, 0.0, aDay) * 1000);
    // Also for a message that somebody has already looked at but not taken.
    MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(milliseconds), QS_ALLINPUT,
                                MWMO_INPUTAVAILABLE);
}

} // namespace tarnwick
