#pragma once

#include "platform/interruptions.hpp"
#include "platform/win32/handle.hpp"

#include <thread>

namespace tarnwick {

// Ctrl+C and Ctrl+Break ask; a closed console orders, and so do a logoff and a shutdown, of which a
// program that uses windows is told by a window. After an order the system waits some seconds for
// the process to end.
class Win32Interruptions : public Interruptions {
  public:
    // Raises the system's error where it gives no event.
    Win32Interruptions();
    Win32Interruptions(const Win32Interruptions&) = delete;
    Win32Interruptions& operator=(const Win32Interruptions&) = delete;
    Win32Interruptions(Win32Interruptions&&) = delete;
    Win32Interruptions& operator=(Win32Interruptions&&) = delete;
    ~Win32Interruptions() override;

    void listen(std::function<void(Interruption)> heard) override;

    // The class of the window that nobody sees.
    static constexpr const wchar_t* windowClass = L"TarnwickRunEndOfSession";

  private:
    Handle gone_; // an event: this object is on its way out
    std::jthread ofSession_;
};

} // namespace tarnwick
