#include "platform/win32/win32_files.hpp"

#include "platform/wildcard.hpp"
#include "platform/win32/errors.hpp"
#include "platform/win32/filled_text.hpp"
#include "platform/win32/folder_search.hpp"
#include "platform/win32/handle.hpp"
#include "platform/win32/kept_access.hpp"
#include "platform/win32/system_text.hpp"
#include "platform/win32/win32_open_files.hpp"
#include "platform/windows_path.hpp"

#include <windows.h>

#include <optional>
#include <utility>

namespace tarnwick {
namespace {

bool isFolder(DWORD attributes) noexcept {
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Raises when there is nothing of that name. Its attributes.
DWORD attributesOf(const std::string& path) {
    const auto attributes = GetFileAttributesW(toWidePath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        raiseSystemError(GetLastError(), path);
    }
    return attributes;
}

// Raises 75 when the file may not be replaced, before the system is asked, which would not tell
// that from a file in use.
void requireReplaceable(const std::string& path) {
    const auto attributes = GetFileAttributesW(toWidePath(path).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES &&
        (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0) {
        raiseSystemError(ERROR_ACCESS_DENIED);
    }
}

// Raises 75 when the file is a link: to replace it would surprise its owner, to follow it might
// change what somebody else has chosen.
void requireNoLink(const std::string& path) {
    const auto attributes = GetFileAttributesW(toWidePath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        return;
    }
    if (const auto entry = findEntry(path); entry && isLink(*entry)) {
        raiseSystemError(ERROR_ACCESS_DENIED);
    }
}

// Whether anybody has the file open: even one who lets others delete it keeps it from being
// replaced.
bool isInUse(const std::string& path) {
    const Handle file(
        CreateFileW(toWidePath(path).c_str(), DELETE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    return !file.isOpen() && GetLastError() == ERROR_SHARING_VIOLATION;
}

// Whether a move over that file failed because somebody uses one of the two.
bool isUseOf(const std::string& target, DWORD systemError) {
    return systemError == ERROR_SHARING_VIOLATION || systemError == ERROR_LOCK_VIOLATION ||
           (systemError == ERROR_ACCESS_DENIED && isInUse(target));
}

// What looks at every new file, an indexer or a virus scanner, is done with it in a moment.
constexpr int attempts = 10;
constexpr DWORD millisecondsBetweenAttempts = 50;

// Puts what the file holds on the medium. A file that may not be written is left for the move to
// tell about.
void flushContent(const std::string& path) {
    constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const Handle file(CreateFileW(toWidePath(path).c_str(), GENERIC_WRITE, shareAll, nullptr,
                                  OPEN_EXISTING, 0, nullptr));
    if (file.isOpen()) {
        putOnMedium(file);
    }
}

template <typename Matches>
Listing listingOf(std::string_view folder, EntryKind kind, Win32Files::ShortNames shortNames,
                  const Matches& matches) {
    Listing listing;
    listing.leftOut =
        searchByName(possible(folder), kind, shortNames == Win32Files::ShortNames::Ignored, matches,
                     [&](std::string name, const WIN32_FIND_DATAW& /*entry*/) {
                         listing.names.push_back(std::move(name));
                     });
    sortNames(listing.names);
    return listing;
}

} // namespace

template <typename Change>
auto Win32Files::outlastUse(const Change& change) {
    for (int attempt = 1;; ++attempt) {
        try {
            return change();
        } catch (const RunTimeError& error) {
            if (!error.is(ErrorNumber::PermissionDenied) || attempt == attempts) {
                throw;
            }
        }
        pauseBetweenAttempts();
    }
}

bool Win32Files::canListFolder(std::string_view folder) const {
    return isPossiblePath(folder) && canSearchFolder(std::string(folder));
}

std::string Win32Files::firstNormalFile(std::string_view path) const {
    if (!isPossiblePattern(path)) {
        throw RunTimeError(ErrorNumber::BadFileName, ERROR_INVALID_NAME);
    }
    const auto pattern = lastPart(path);
    if (pattern.empty()) {
        return {};
    }
    if (hasWildcard(pattern)) {
        const auto folder = std::string(path.substr(0, path.size() - pattern.size())) + '.';
        const auto names =
            listingOf(folder, EntryKind::File, shortNames_, [&](std::string_view name) {
                return matchesWildcard(name, pattern);
            }).names;
        return names.empty() ? std::string() : names.front();
    }
    const auto entry = findEntry(std::string(path));
    if (!entry || kindOf(*entry) != EntryKind::File) {
        return {};
    }
    // What was asked for by its short name may have none but that.
    return toFileName(entry->cFileName).value_or(std::string(pattern));
}

Listing Win32Files::listFiles(std::string_view folder, std::string_view patterns) const {
    return listingOf(folder, EntryKind::File, shortNames_,
                     [&](std::string_view name) { return matchesAnyWildcard(name, patterns); });
}

Listing Win32Files::listFolders(std::string_view folder) const {
    return listingOf(folder, EntryKind::Folder, shortNames_, [](std::string_view) { return true; });
}

std::vector<std::string> Win32Files::drives() const {
    std::vector<std::string> drives;
    const auto present = GetLogicalDrives();
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        if ((present >> static_cast<unsigned>(letter - 'A') & 1U) != 0) {
            drives.push_back(std::string(1, letter) + ':');
        }
    }
    return drives;
}

std::string Win32Files::currentFolder() const {
    return pathText(
        filledBy([](wchar_t* buffer, DWORD size) { return GetCurrentDirectoryW(size, buffer); }));
}

std::string Win32Files::shortPath(std::string_view path) const {
    const auto longPath = possible(path);
    attributesOf(longPath);
    const auto wide = toWidePath(longPath);
    const auto shortened = filledBy([&](wchar_t* buffer, DWORD size) {
        const auto length = GetShortPathNameW(wide.c_str(), buffer, size);
        if (length == 0) {
            raiseSystemError(GetLastError(), longPath);
        }
        return length;
    });
    return toSystemText(shortened).value_or(longPath);
}

std::unique_ptr<InputFile> Win32Files::openForReading(std::string_view path) const {
    return openWin32File(possible(path));
}

std::unique_ptr<OutputFile> Win32Files::create(std::string_view path) {
    return outlastUse([&] { return createWin32File(possible(path), Existing::Emptied); });
}

std::unique_ptr<OutputFile> Win32Files::createNew(std::string_view path) {
    return outlastUse([&] { return createWin32File(possible(path), Existing::Refused); });
}

std::unique_ptr<OutputFile> Win32Files::append(std::string_view path) {
    return outlastUse([&] { return createWin32File(possible(path), Existing::Kept); });
}

void Win32Files::remove(std::string_view path) {
    const auto file = possible(path);
    outlastUse([&file] {
        if (DeleteFileW(toWidePath(file).c_str()) != 0) {
            return;
        }
        const auto systemError = GetLastError();
        if (isFolder(GetFileAttributesW(toWidePath(file).c_str()))) {
            raiseSystemError(ErrorNumber::FileNotFound, systemError);
        }
        raiseSystemError(systemError, file);
    });
}

void Win32Files::createFolder(std::string_view path) {
    const auto folder = possible(path);
    if (CreateDirectoryW(toWidePath(folder).c_str(), nullptr) == 0) {
        raiseSystemError(GetLastError(), folder);
    }
}

void Win32Files::move(std::string_view from, std::string_view to, Access access) {
    const auto source = possible(from);
    const auto target = possible(to);
    if (isFolder(attributesOf(source))) {
        raiseSystemError(ERROR_FILE_NOT_FOUND);
    }
    requireReplaceable(target);
    // A rename can reach the medium before the renamed file's content does.
    flushContent(source);
    KeptAccess kept(access == Access::OfTarget ? toWidePath(target) : std::wstring());
    if (access == Access::OfTarget) {
        requireNoLink(target);
    }
    outlastUse([&] {
        if (MoveFileExW(toWidePath(source).c_str(), toWidePath(target).c_str(),
                        MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
            kept.giveTo(toWidePath(target));
            return;
        }
        const auto systemError = GetLastError();
        if (isUseOf(target, systemError)) {
            raiseSystemError(ErrorNumber::PermissionDenied, systemError);
        }
        raiseSystemError(systemError, target);
    });
}

void Win32Files::pauseBetweenAttempts() noexcept {
    Sleep(millisecondsBetweenAttempts);
}

} // namespace tarnwick
