#pragma once

#include <windows.h>

#include <filesystem>
#include <memory>
#include <string>

namespace tarnwick::test {

// A program that a test has started, and the windows that it shows. Every wait ends by itself: a
// test fails instead of hanging.
class RunningProgram {
  public:
    // Starts `program` with `arguments` as they would be typed behind its name.
    RunningProgram(const std::filesystem::path& program, const std::wstring& arguments);
    // The same in the system's code page.
    RunningProgram(const std::filesystem::path& program, const std::string& arguments);
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    ~RunningProgram(); // ends it when it still runs

    // Ends it, as the system ends what does not answer, and waits until it is gone.
    void end();

    // Waits for its end; throws when it does not come.
    [[nodiscard]] unsigned exitCode();

    // Waits for a visible window of the program with that title; throws when none comes, and at
    // once when the program has ended. What is thrown says how it ended, or what it shows instead.
    [[nodiscard]] HWND window(const std::string& title);

    // Waits for its window of that class, which nobody needs to see; throws when none comes.
    [[nodiscard]] HWND windowOfClass(const wchar_t* windowClass) const;

  private:
    [[nodiscard]] bool hasEnded() const;

    struct CloseHandleOf {
        void operator()(HANDLE handle) const { CloseHandle(handle); }
    };
    std::unique_ptr<void, CloseHandleOf> process_;
    DWORD processId_ = 0;
};

// What a control or window says; what a message box says below its title.
[[nodiscard]] std::string textOf(HWND window);
[[nodiscard]] std::string messageOf(HWND messageBox);

// Types `text` into the control, replacing what it holds.
void fill(HWND dialog, int control, const std::string& text);

// Presses the button of that caption (as it stands, with its "&"), and waits until the dialog is
// gone; throws when it stays.
void press(HWND dialog, const std::string& caption);

} // namespace tarnwick::test
