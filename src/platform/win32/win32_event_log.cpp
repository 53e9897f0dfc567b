#include "platform/win32/win32_event_log.hpp"

#include "platform/win32/system_text.hpp"

#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>

namespace tarnwick {
namespace {

constexpr DWORD textAlone = 1;              // in event_messages.mc
constexpr std::size_t longestText = 31'839; // that the system takes

struct Deregister {
    void operator()(HANDLE source) const noexcept { DeregisterEventSource(source); }
};
using EventSource = std::unique_ptr<std::remove_pointer_t<HANDLE>, Deregister>;

} // namespace

void Win32EventLog::warn(std::string_view text) {
    const EventSource source(RegisterEventSourceW(nullptr, L"Tarnwick"));
    if (!source) {
        return;
    }
    const std::wstring shown = toWide(text).substr(0, longestText);
    const wchar_t* line = shown.c_str();
    ReportEventW(source.get(), EVENTLOG_WARNING_TYPE, 0, textAlone, nullptr, 1, 0, &line, nullptr);
}

} // namespace tarnwick
