#include "platform/win32/win32_terminal.hpp"

#include "platform/win32/system_text.hpp"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <ranges>
#include <string>

namespace tarnwick {
namespace {

bool writeToConsole(HANDLE console, std::wstring_view text) {
    constexpr std::size_t most = 8192; // more at once is too much for older systems
    while (!text.empty()) {
        DWORD count = 0;
        const auto size = static_cast<DWORD>(std::min(text.size(), most));
        if (WriteConsoleW(console, text.data(), size, &count, nullptr) == 0 || count == 0) {
            return false;
        }
        text.remove_prefix(count);
    }
    return true;
}

bool writeBytes(HANDLE file, std::string_view bytes) {
    constexpr std::size_t most = std::numeric_limits<std::int32_t>::max();
    while (!bytes.empty()) {
        DWORD count = 0;
        const auto size = static_cast<DWORD>(std::min(bytes.size(), most));
        if (WriteFile(file, bytes.data(), size, &count, nullptr) == 0 || count == 0) {
            return false;
        }
        bytes.remove_prefix(count);
    }
    return true;
}

} // namespace

Win32Terminal::Win32Terminal()
    : targets_{openTarget(STD_OUTPUT_HANDLE), openTarget(STD_ERROR_HANDLE)} {}

// In the reverse order: both may be the same console.
Win32Terminal::~Win32Terminal() {
    for (const Target& target : std::views::reverse(targets_)) {
        if (target.drawsOver) {
            SetConsoleMode(target.handle, target.modeBefore);
        }
    }
}

Win32Terminal::Target Win32Terminal::openTarget(DWORD which) {
    Target target{.handle = GetStdHandle(which)};
    target.isConsole = GetConsoleMode(target.handle, &target.modeBefore) != 0;
    constexpr DWORD drawing = ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING;
    target.drawsOver =
        target.isConsole && SetConsoleMode(target.handle, target.modeBefore | drawing) != 0;
    return target;
}

const Win32Terminal::Target& Win32Terminal::of(Stream stream) const {
    return targets_.at(stream == Stream::Output ? 0 : 1);
}

bool Win32Terminal::isTerminal(Stream stream) const {
    return of(stream).drawsOver;
}

int Win32Terminal::width() const {
    for (const Target& target : std::views::reverse(targets_)) {
        CONSOLE_SCREEN_BUFFER_INFO about{};
        if (target.isConsole && GetConsoleScreenBufferInfo(target.handle, &about) != 0) {
            return about.srWindow.Right - about.srWindow.Left + 1;
        }
    }
    constexpr int usual = 80;
    return usual;
}

bool Win32Terminal::write(Stream stream, std::string_view text) {
    Target& target = targets_.at(stream == Stream::Output ? 0 : 1);
    if (!target.isLost) {
        target.isLost = target.isConsole ? !writeToConsole(target.handle, toWide(text))
                                         : !writeBytes(target.handle, text);
    }
    return !target.isLost;
}

} // namespace tarnwick
