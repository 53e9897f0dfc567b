#include "platform/win32/win32_command_interpreter.hpp"

#include "platform/characters.hpp"
#include "platform/win32/command_line.hpp"
#include "platform/win32/errors.hpp"
#include "platform/win32/filled_text.hpp"
#include "platform/win32/handle.hpp"
#include "platform/win32/system_text.hpp"

#include <windows.h>

#include <utility>

namespace tarnwick {
namespace {

void requireFile(const std::wstring& path) {
    const auto attributes = GetFileAttributesW(path.c_str());
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
    const std::wstring path = toWidePath(possible(batchFile));
    requireFile(path);
    const auto interpreter = filledBy([](wchar_t* buffer, DWORD size) {
        return GetEnvironmentVariableW(L"ComSpec", buffer, size);
    });
    std::wstring line = interpreterLine(interpreter, path);
    const std::wstring folder = folderToStartIn(
        filledBy([](wchar_t* buffer, DWORD size) { return GetCurrentDirectoryW(size, buffer); }),
        path);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_HIDE;
    PROCESS_INFORMATION started{};
    if (CreateProcessW(interpreter.empty() ? nullptr : interpreter.c_str(), line.data(), nullptr,
                       nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                       folder.empty() ? nullptr : folder.c_str(), &start, &started) == 0) {
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
    const auto wide = fromCodePage(text, CP_ACP);
    return wide ? toCodePage(*wide, CP_OEMCP).value_or("") : "";
}

std::string Win32CommandInterpreter::systemCodePageLine() const {
    return R"(@"%SystemRoot%\System32\chcp.com" )" + std::to_string(GetACP()) + " > nul";
}

} // namespace tarnwick
