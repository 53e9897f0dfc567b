#pragma once

#include <windows.h>

#include <vector>

namespace tarnwick::probe {

// Hears what all programs tell a screen reader of the keyboard and of what it is on, while it
// lives. Everything about it is done by one thread.
class HeardEvents {
  public:
    struct Event {
        DWORD kind = 0; // EVENT_OBJECT_FOCUS, _NAMECHANGE or _STATECHANGE
        HWND window = nullptr;
        LONG child = 0; // 0: the window itself
    };

    HeardEvents();
    HeardEvents(const HeardEvents&) = delete;
    HeardEvents& operator=(const HeardEvents&) = delete;
    ~HeardEvents();

    // What has come since the last call, or since the beginning, in its order.
    [[nodiscard]] std::vector<Event> take();

  private:
    HWINEVENTHOOK hook_;
};

} // namespace tarnwick::probe
