#include "platform/win32/win32_command_interpreter.hpp"

#include "platform/characters.hpp"
#include "platform/win32/errors.hpp"
#include "platform/win32/folder_search.hpp"
#include "platform/win32/handle.hpp"
#include "platform/win32/win32_process.hpp"
#include "platform/windows_path.hpp"

#include <windows.h>

#include <utility>

namespace tarnwick {
namespace {

std::wstring toWide(const std::string& text, UINT codePage) {
    const int length = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0'); // never more characters than bytes
    const int count = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, text.data(), length,
                                          wide.data(), length);
    wide.resize(static_cast<std::size_t>(count)); // 0 when a byte is no character
    return wide;
}

// Empty where a character has no place in the code page; none becomes a similar one.
std::string fromWide(const std::wstring& wide, UINT codePage) {
    std::string text(wide.size() * 4, '\0');
    BOOL lost = FALSE;
    const int count = WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, wide.data(),
                                          static_cast<int>(wide.size()), text.data(),
                                          static_cast<int>(text.size()), nullptr, &lost);
    text.resize(lost != FALSE ? 0 : static_cast<std::size_t>(count));
    // What comes back as something else was not there either, whatever the system says.
    return toWide(text, codePage) == wide ? text : std::string();
}

void requireFile(const std::string& path) {
    const auto attributes = GetFileAttributesA(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        raiseSystemError(ErrorNumber::FileNotFound, GetLastError());
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        raiseSystemError(ErrorNumber::FileNotFound, ERROR_FILE_NOT_FOUND);
    }
}

class Win32StartedBatch : public StartedBatch {
  public:
    explicit Win32StartedBatch(Handle process) : process_(std::move(process)) {}

    [[nodiscard]] bool hasEnded() const override {
        return WaitForSingleObject(process_.get(), 0) == WAIT_OBJECT_0;
    }

  private:
    Handle process_;
};

} // namespace

std::unique_ptr<StartedBatch> Win32CommandInterpreter::startHidden(std::string_view batchFile) {
    if (!isPossiblePath(batchFile)) {
        throw RunTimeError(ErrorNumber::BadFileName, ERROR_INVALID_NAME);
    }
    const std::string path(batchFile);
    requireFile(path);
    const auto interpreter = Win32Process().environmentVariable("ComSpec");
    // /s: the outer quotation marks are taken away and nothing else is changed. /d: no command
    // that the user has set to run first.
    std::string line = '"' + interpreter + R"(" /d /s /c "")" + path + R"("")";
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_HIDE;
    PROCESS_INFORMATION started{};
    if (CreateProcessA(interpreter.empty() ? nullptr : interpreter.c_str(), line.data(), nullptr,
                       nullptr, FALSE, CREATE_NEW_CONSOLE, nullptr, nullptr, &start,
                       &started) == 0) {
        raiseSystemError(ErrorNumber::PathFileAccess, GetLastError());
    }
    Handle process(started.hProcess);
    const Handle thread(started.hThread);
    return std::make_unique<Win32StartedBatch>(std::move(process));
}

std::string Win32CommandInterpreter::batchText(std::string_view text) const {
    if (isAscii(text) || GetACP() == GetOEMCP()) {
        return std::string(text);
    }
    return fromWide(toWide(std::string(text), CP_ACP), CP_OEMCP);
}

std::string Win32CommandInterpreter::systemCodePageLine() const {
    return "@chcp " + std::to_string(GetACP()) + " > nul";
}

} // namespace tarnwick
