#pragma once

#include <windows.h>

#include <thread>

namespace tarnwick::probe {

// Sees the keys F11 and F12 on their way to any program, and takes them away. Keys and clicks
// arrive in the order in which they were made: whoever sends such a key behind others learns in
// this way that those have arrived.
class InputMarks {
  public:
    InputMarks();
    InputMarks(const InputMarks&) = delete;
    InputMarks& operator=(const InputMarks&) = delete;
    ~InputMarks();

    // Whether that key is the last of the two that has come, or becomes so within a fifth of a
    // second. Use them in turns.
    [[nodiscard]] bool wait(DWORD key) const;

  private:
    DWORD threadNumber_ = 0;
    std::thread thread_; // the system asks it about every key
};

} // namespace tarnwick::probe
