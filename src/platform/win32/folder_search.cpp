#include "platform/win32/folder_search.hpp"

#include "platform/win32/errors.hpp"
#include "platform/win32/handle.hpp"
#include "platform/win32/system_text.hpp"
#include "platform/windows_path.hpp"

#include <string_view>
#include <utility>

namespace tarnwick {
namespace {

FindHandle startSearch(const std::string& pattern, WIN32_FIND_DATAW& entry) {
    // Short names are not asked for, and many entries are fetched at once: half the time of the
    // plain call in a large folder.
    return FindHandle(FindFirstFileExW(toWidePath(pattern).c_str(), FindExInfoBasic, &entry,
                                       FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
}

// What a failed search tells about the folder; the path was possible, so a name that the system
// finds invalid means that what should be a folder is none.
[[noreturn]] void raiseSearchError(DWORD systemError, const std::string& path) {
    if (systemError == ERROR_INVALID_NAME) {
        raiseSystemError(ErrorNumber::PathNotFound, systemError);
    }
    raiseSystemError(systemError, path);
}

// An empty root has not even "." in it: nothing is found, though the folder is there.
bool isEmptyFolder(DWORD systemError, const std::string& folder) {
    if (systemError != ERROR_FILE_NOT_FOUND) {
        return false;
    }
    const auto attributes = GetFileAttributesW((toWidePath(folder) + L'\\').c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// The short name of that entry of the folder; nothing where the volume keeps none, or none that has
// a place in the code page.
std::optional<std::string> shortNameIn(const std::string& folder, const std::wstring& name) {
    WIN32_FIND_DATAW entry{};
    const auto path = toWidePath(withBackslash(folder)) + name;
    const FindHandle search(FindFirstFileExW(path.c_str(), FindExInfoStandard, &entry,
                                             FindExSearchNameMatch, nullptr, 0));
    // The system cuts off a dot or blank at the end, and then finds another entry.
    if (!search.isOpen() || name != entry.cFileName) {
        return std::nullopt;
    }
    const std::wstring_view shortName = entry.cAlternateFileName;
    return shortName.empty() ? std::nullopt : toFileName(shortName);
}

} // namespace

EntryKind kindOf(const WIN32_FIND_DATAW& entry) noexcept {
    const std::wstring_view name = entry.cFileName;
    constexpr DWORD unseen = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    if ((entry.dwFileAttributes & unseen) != 0 || name == L"." || name == L"..") {
        return EntryKind::Unseen;
    }
    return (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? EntryKind::Folder
                                                                    : EntryKind::File;
}

void searchFolder(const std::string& folder,
                  const std::function<void(const WIN32_FIND_DATAW&)>& take) {
    if (folder.empty()) { // which would become the root of the current drive
        raiseSystemError(ERROR_PATH_NOT_FOUND);
    }
    WIN32_FIND_DATAW entry{};
    const FindHandle search = startSearch(withBackslash(folder) + '*', entry);
    if (!search.isOpen()) {
        const auto systemError = GetLastError();
        if (isEmptyFolder(systemError, folder)) {
            return;
        }
        raiseSearchError(systemError == ERROR_FILE_NOT_FOUND ? ERROR_PATH_NOT_FOUND : systemError,
                         folder);
    }
    do {
        take(entry);
    } while (FindNextFileW(search.get(), &entry) != 0);
    if (GetLastError() != ERROR_NO_MORE_FILES) {
        raiseSearchError(GetLastError(), folder);
    }
}

LeftOut searchByName(const std::string& folder, EntryKind kind, bool ignoreShortNames,
                     const std::function<bool(std::string_view)>& matches,
                     const std::function<void(std::string, const WIN32_FIND_DATAW&)>& take) {
    LeftOut leftOut;
    searchFolder(folder, [&](const WIN32_FIND_DATAW& entry) {
        if (kindOf(entry) != kind) {
            return;
        }
        auto name = toFileName(entry.cFileName);
        if (!matches(name ? *name : matchingText(entry.cFileName))) {
            return;
        }
        if (!name && !ignoreShortNames) {
            name = shortNameIn(folder, entry.cFileName);
        }
        if (name) {
            take(*std::move(name), entry);
        } else {
            leaveOut(shownText(entry.cFileName), leftOut);
        }
    });
    return leftOut;
}

bool isLink(const WIN32_FIND_DATAW& entry) noexcept {
    // The bit of IsReparseTagNameSurrogate: under this name lies something that has another one.
    constexpr DWORD standsForAnother = 0x20000000;
    return (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           (entry.dwReserved0 & standsForAnother) != 0;
}

bool canSearchFolder(const std::string& folder) {
    if (folder.empty()) {
        return false;
    }
    // Opened for listing, with no look at what is in it: that may be 100,000 files.
    constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const auto path = fromCodePage(withBackslash(folder), CP_ACP);
    if (!path) {
        return false;
    }
    const Handle opened(CreateFileW(path->c_str(), FILE_LIST_DIRECTORY, shareAll, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION about{};
    return opened.isOpen() && GetFileInformationByHandle(opened.get(), &about) != FALSE &&
           (about.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::optional<WIN32_FIND_DATAW> findEntry(const std::string& path) {
    WIN32_FIND_DATAW entry{};
    const FindHandle search = startSearch(path, entry);
    if (search.isOpen()) {
        return entry;
    }
    const auto systemError = GetLastError();
    if (systemError == ERROR_FILE_NOT_FOUND) {
        return std::nullopt;
    }
    raiseSearchError(systemError, path);
}

} // namespace tarnwick
