#include "platform/win32/win32_desktop.hpp"

#include "platform/default_extension.hpp"
#include "platform/run_time_error.hpp"
#include "platform/win32/asking_window.hpp"
#include "platform/win32/errors.hpp"
#include "platform/win32/filled_text.hpp"
#include "platform/win32/system_text.hpp"
#include "platform/win32/unusable_text.hpp"

#include <windows.h>

#include <cderr.h>
#include <commdlg.h>
#include <shellapi.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace tarnwick {
namespace {

UINT styleOf(const Message& message) noexcept {
    const UINT buttons = message.buttons == MessageButtons::YesNo ? MB_YESNO : MB_OK;
    const UINT icon = message.icon == MessageIcon::Exclamation ? MB_ICONEXCLAMATION : 0U;
    return buttons | icon | MB_TASKMODAL | MB_SETFOREGROUND;
}

DWORD flagsOf(const FileDialog& dialog) noexcept {
    DWORD flags = OFN_EXPLORER;
    flags |= dialog.fileMustExist ? OFN_FILEMUSTEXIST : 0U;
    flags |= dialog.overwritePrompt ? OFN_OVERWRITEPROMPT : 0U;
    flags |= dialog.hideReadOnly ? OFN_HIDEREADONLY : 0U;
    return flags;
}

// "A|*.a|B|*.b" as the system wants it: each part ended by a NUL, and one more behind all.
std::wstring filterList(std::string_view filter) {
    std::wstring list = toWide(filter);
    std::ranges::replace(list, L'|', L'\0');
    return list + std::wstring(2, L'\0');
}

// The folder in which the program stands stays the same, wherever the user goes meanwhile. The
// system's own option for that means nothing to a dialog that opens.
class CurrentFolderKept {
  public:
    CurrentFolderKept()
        : folder_(filledBy(
              [](wchar_t* buffer, DWORD size) { return GetCurrentDirectoryW(size, buffer); })) {}
    CurrentFolderKept(const CurrentFolderKept&) = delete;
    CurrentFolderKept& operator=(const CurrentFolderKept&) = delete;
    ~CurrentFolderKept() { SetCurrentDirectoryW(folder_.c_str()); }

  private:
    std::wstring folder_;
};

// Whether a file was chosen; its name is in `name` then, and the filter that it was chosen by in
// `filterIndex`.
bool runDialog(const FileDialog& dialog, std::wstring& name, DWORD& filterIndex) {
    const auto title = toWide(dialog.title);
    const auto initialFolder = toWide(dialog.initialFolder);
    const auto filter = filterList(dialog.filter);
    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = askingWindow();
    request.lpstrFilter = dialog.filter.empty() ? nullptr : filter.c_str();
    request.nFilterIndex = static_cast<DWORD>(dialog.filterIndex);
    request.lpstrFile = name.data();
    request.nMaxFile = static_cast<DWORD>(name.size());
    request.lpstrInitialDir = initialFolder.empty() ? nullptr : initialFolder.c_str();
    request.lpstrTitle = title.empty() ? nullptr : title.c_str();
    request.Flags = flagsOf(dialog);
    const BOOL chosen = dialog.kind == FileDialog::Kind::Open ? GetOpenFileNameW(&request)
                                                              : GetSaveFileNameW(&request);
    filterIndex = request.nFilterIndex;
    return chosen != FALSE;
}

bool somethingExists(const std::string& path) {
    return GetFileAttributesW(toWidePath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

// The button that was pressed; IDCANCEL for none, 0 where the box could not be shown.
int showBox(const Message& message) {
    return MessageBoxW(askingWindow(), toWide(message.text).c_str(), toWide(message.title).c_str(),
                       styleOf(message));
}

// Then no box stays on the screen: asking would never end.
bool programIsToEnd() {
    MSG message{};
    return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) != FALSE;
}

} // namespace

bool Win32Desktop::isSeen() const noexcept {
    // A task that runs whether anybody is logged on or not, and a service, have a window station
    // without a screen.
    USEROBJECTFLAGS station{};
    const BOOL known = GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &station,
                                                 sizeof station, nullptr);
    return known == FALSE || (station.dwFlags & WSF_VISIBLE) != 0;
}

MessageAnswer Win32Desktop::show(const Message& message) {
    int answer = showBox(message);
    if (message.buttons == MessageButtons::Ok) {
        return MessageAnswer::Ok;
    }
    // Escape and a closed window are no answer, and either one could cost the user something.
    while (answer != IDYES && answer != IDNO && !programIsToEnd()) {
        if (answer == 0) {
            const DWORD code = GetLastError();
            raiseSystemError(ErrorNumber::InternalError, code);
        }
        answer = showBox(message);
    }
    return answer == IDYES ? MessageAnswer::Yes : MessageAnswer::No;
}

std::optional<std::string> Win32Desktop::chooseFile(const FileDialog& dialog) {
    const CurrentFolderKept kept;
    constexpr std::size_t longestPath = 32768;
    std::wstring name = toWide(dialog.fileName).substr(0, longestPath - 1);
    name.resize(longestPath);
    DWORD filterIndex = 0;
    bool chosen = runDialog(dialog, name, filterIndex);
    if (!chosen && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
        name.assign(longestPath, L'\0'); // better an empty field than no dialog
        chosen = runDialog(dialog, name, filterIndex);
    }
    if (!chosen) {
        if (const auto systemError = CommDlgExtendedError(); systemError != 0) {
            raiseSystemError(ErrorNumber::InternalError, systemError);
        }
        return std::nullopt;
    }
    name.resize(name.find(L'\0'));
    std::optional<std::string> path = toSystemPath(name);
    if (!path) {
        tellUnusable(askingWindow(), name);
        return std::nullopt;
    }
    // The system's own default extension would be appended whichever filter is chosen.
    if (dialog.kind == FileDialog::Kind::Open || filterIndex != 1) {
        return path;
    }
    std::string extended = withDefaultExtension(*path, dialog.filter);
    if (dialog.overwritePrompt && extended != *path && somethingExists(extended)) {
        FileDialog again = dialog; // it asks before it replaces, and has not seen this name yet
        again.fileName = std::move(extended);
        return chooseFile(again);
    }
    return extended;
}

std::int32_t Win32Desktop::openDocument(std::string_view document, std::string_view workingFolder) {
    const auto result = reinterpret_cast<INT_PTR>(
        ShellExecuteW(GetDesktopWindow(), L"Open", toWide(document).c_str(), L"",
                      toWide(workingFolder).c_str(), SW_SHOWNORMAL));
    return static_cast<std::int32_t>(result);
}

} // namespace tarnwick
