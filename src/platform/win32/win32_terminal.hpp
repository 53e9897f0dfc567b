#pragma once

#include "platform/terminal.hpp"

#include <windows.h>

#include <array>
#include <optional>

namespace tarnwick {

// A console is a terminal where it knows how to draw over a line, which is switched on here and put
// back at the end. What goes elsewhere goes as it is.
class Win32Terminal : public Terminal {
  public:
    Win32Terminal();
    Win32Terminal(const Win32Terminal&) = delete;
    Win32Terminal& operator=(const Win32Terminal&) = delete;
    Win32Terminal(Win32Terminal&&) = delete;
    Win32Terminal& operator=(Win32Terminal&&) = delete;
    ~Win32Terminal() override;

    [[nodiscard]] bool isTerminal(Stream stream) const override;
    [[nodiscard]] int width() const override;
    bool write(Stream stream, std::string_view text) override;

  private:
    struct Target {
        HANDLE handle = nullptr; // the process's own
        bool isConsole = false;
        bool drawsOver = false;
        DWORD modeBefore = 0;
        bool isLost = false;
    };

    static Target openTarget(DWORD which);
    [[nodiscard]] const Target& of(Stream stream) const;

    std::array<Target, 2> targets_;
};

} // namespace tarnwick
