// Writes to a console by Win32Terminal, and tells on its standard output what is seen there.

#include "platform/win32/handle.hpp"
#include "platform/win32/system_text.hpp"
#include "platform/win32/win32_terminal.hpp"

#include <windows.h>

#include <iostream>
#include <string>

namespace {

using tarnwick::Handle;
using tarnwick::Stream;

DWORD modeOf(const Handle& console) {
    DWORD mode = 0;
    GetConsoleMode(console.get(), &mode);
    return mode;
}

std::string seen(const Handle& console, SHORT line, DWORD length) {
    std::wstring text(length, L'\0');
    DWORD count = 0;
    ReadConsoleOutputCharacterW(console.get(), text.data(), length, {0, line}, &count);
    return tarnwick::shownText(text);
}

} // namespace

int main() {
    if (GetConsoleCP() == 0) {
        AllocConsole();
    }
    // A screen of its own on that console.
    const Handle console(CreateConsoleScreenBuffer(GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                                   CONSOLE_TEXTMODE_BUFFER, nullptr));
    SetConsoleMode(console.get(), ENABLE_PROCESSED_OUTPUT | ENABLE_WRAP_AT_EOL_OUTPUT);
    const DWORD before = modeOf(console);
    HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    std::string said;
    {
        SetStdHandle(STD_ERROR_HANDLE, console.get());
        tarnwick::Win32Terminal terminal;
        SetStdHandle(STD_OUTPUT_HANDLE, output);
        said += terminal.isTerminal(Stream::Output) ? "output is one, " : "output is none, ";
        said += terminal.isTerminal(Stream::Error) ? "error is one, " : "error is none, ";
        said +=
            (modeOf(console) & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0 ? "draws, " : "does not, ";
        CONSOLE_SCREEN_BUFFER_INFO about{};
        GetConsoleScreenBufferInfo(console.get(), &about);
        said += about.srWindow.Right + 1 == terminal.width() ? "as wide, " : "another width, ";
        said += terminal.write(Stream::Error, "caf\xE9 \x80\nabc\rX") ? "" : "lost, ";
    }
    said += seen(console, 0, 6) + ", " + seen(console, 1, 3) + ", ";
    said += modeOf(console) == before ? "put back" : "changed";
    std::cout << said;
}
