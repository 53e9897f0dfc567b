#include "platform/posix/folder_listing.hpp"

#include "platform/characters.hpp"
#include "platform/code_page.hpp"
#include "platform/left_out.hpp"
#include "platform/posix/errors.hpp"
#include "platform/posix/file_descriptor.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string_view>

namespace tarnwick {
namespace {

std::optional<EntryKind> kindOf(const ListedFolder& folder, const dirent& entry) {
    switch (entry.d_type) {
    case DT_REG:
        return EntryKind::File;
    case DT_DIR:
        return EntryKind::Folder;
    case DT_LNK:
    case DT_UNKNOWN: { // only now is a second look needed
        const auto status = folder.statusOf(entry.d_name);
        if (status && S_ISREG(status->st_mode)) {
            return EntryKind::File;
        }
        return status && S_ISDIR(status->st_mode) ? std::optional(EntryKind::Folder) : std::nullopt;
    }
    default:
        return std::nullopt;
    }
}

bool isSpecialName(std::string_view name) {
    return name == "." || name == "..";
}

} // namespace

ListedFolder::ListedFolder(const std::string& hostFolder) {
    FileDescriptor descriptor(::open(hostFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor.isOpen()) {
        raiseSystemError(errno == ENOENT ? ENOTDIR : errno);
    }
    struct stat status{};
    if (::fstat(descriptor.get(), &status) != 0) {
        raiseSystemError(errno);
    }
    if ((status.st_mode & S_IRUSR) == 0) { // the superuser may list anything
        raiseSystemError(EACCES);
    }
    folder_.reset(::fdopendir(descriptor.get()));
    if (!folder_) {
        raiseSystemError(errno);
    }
    static_cast<void>(descriptor.release()); // the folder closes it now
}

const dirent* ListedFolder::next() {
    const dirent* entry = nullptr;
    do {
        errno = 0;
        entry = ::readdir(folder_.get());
        if (entry == nullptr && errno != 0) {
            raiseSystemError(errno);
        }
    } while (entry != nullptr && isSpecialName(entry->d_name));
    return entry;
}

std::optional<struct stat> ListedFolder::statusOf(const char* name) const {
    struct stat status{};
    const int folder = ::dirfd(folder_.get());
    const bool known = folder >= 0 && ::fstatat(folder, name, &status, 0) == 0;
    return known ? std::optional(status) : std::nullopt;
}

void listHostFolder(const std::string& hostFolder,
                    const std::function<void(std::string_view name, EntryKind kind)>& take) {
    ListedFolder folder(hostFolder);
    while (const dirent* entry = folder.next()) {
        if (const auto kind = kindOf(folder, *entry)) {
            take(entry->d_name, *kind);
        }
    }
}

std::optional<std::string> shownWhereOdd(std::string_view name) {
    if (isAscii(name)) {
        return std::nullopt;
    }
    std::string shown;
    bool odd = false;
    while (!name.empty()) {
        const auto bytes = name.substr(0, systemCodePage().lengthOfFirst(name));
        name.remove_prefix(bytes.size());
        if (systemCodePage().isCharacter(bytes)) {
            shown += bytes;
        } else {
            shown += shownByNumber(static_cast<unsigned char>(bytes.front()));
            odd = true;
        }
    }
    return odd ? std::optional(shown) : std::nullopt;
}

bool isListable(const std::string& hostFolder, const struct stat& status) {
    constexpr mode_t everybody = S_IRUSR | S_IRGRP | S_IROTH;
    if (!S_ISDIR(status.st_mode) || (status.st_mode & S_IRUSR) == 0) {
        return false;
    }
    return (status.st_mode & everybody) == everybody || ::access(hostFolder.c_str(), R_OK) == 0;
}

} // namespace tarnwick
