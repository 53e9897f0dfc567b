#include "window/heard_events.hpp"

#include <utility>

namespace tarnwick::probe {
namespace {

// The system's callback carries no pointer of ours.
std::vector<HeardEvents::Event>& heard() {
    static std::vector<HeardEvents::Event> instance;
    return instance;
}

void CALLBACK hear(HWINEVENTHOOK /*hook*/, DWORD kind, HWND window, LONG object, LONG child,
                   DWORD /*thread*/, DWORD /*time*/) {
    const bool ours = kind == EVENT_OBJECT_FOCUS || kind == EVENT_OBJECT_NAMECHANGE ||
                      kind == EVENT_OBJECT_STATECHANGE;
    if (ours && object == OBJID_CLIENT) {
        heard().push_back({.kind = kind, .window = window, .child = child});
    }
}

} // namespace

HeardEvents::HeardEvents()
    : hook_(SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_NAMECHANGE, nullptr, hear, 0, 0,
                            WINEVENT_OUTOFCONTEXT)) {
    heard().clear();
}

HeardEvents::~HeardEvents() {
    UnhookWinEvent(hook_);
}

// They wait for this thread among its messages.
std::vector<HeardEvents::Event> HeardEvents::take() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        DispatchMessageW(&message);
    }
    return std::exchange(heard(), {});
}

} // namespace tarnwick::probe
