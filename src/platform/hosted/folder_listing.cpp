#include "platform/hosted/folder_listing.hpp"

#include "platform/case_folding.hpp"
#include "platform/hosted/errors.hpp"
#include "platform/hosted/file_descriptor.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_set>

namespace tarnwick {
namespace {

constexpr std::string_view unseenList = ".hidden";

struct FolderCloser {
    void operator()(DIR* folder) const noexcept { ::closedir(folder); }
};
using Folder = std::unique_ptr<DIR, FolderCloser>;

Folder openFolder(const std::string& hostFolder) {
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
    Folder folder(::fdopendir(descriptor.get()));
    if (!folder) {
        raiseSystemError(errno);
    }
    static_cast<void>(descriptor.release()); // the folder closes it now
    return folder;
}

// Empty where there is no such file.
std::string contentOf(const std::string& hostPath) {
    const FileDescriptor file(::open(hostPath.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.isOpen()) {
        return {};
    }
    std::string content;
    std::array<char, 4096> block{};
    ssize_t count = 0;
    while ((count = ::read(file.get(), block.data(), block.size())) > 0) {
        content.append(block.data(), static_cast<std::size_t>(count));
    }
    return content;
}

// The names that a folder does not show. Most folders name none, and then no name is looked up.
class UnseenNames {
  public:
    explicit UnseenNames(const std::string& hostFolder) {
        const auto content = contentOf(std::string(hostFolder).append("/").append(unseenList));
        std::string_view rest = content;
        while (!rest.empty()) {
            const auto end = std::min(rest.find('\n'), rest.size());
            names_.insert(upperCase(rest.substr(0, end)));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }

    [[nodiscard]] bool contain(std::string_view name) const {
        return equalIgnoringCase(name, unseenList) ||
               (!names_.empty() && names_.contains(upperCase(name)));
    }

  private:
    std::unordered_set<std::string> names_; // upper-cased
};

std::optional<EntryKind> kindOf(DIR* folder, const dirent& entry) {
    switch (entry.d_type) {
    case DT_REG:
        return EntryKind::File;
    case DT_DIR:
        return EntryKind::Folder;
    case DT_LNK:
    case DT_UNKNOWN: { // only now is a second look needed
        struct stat status{};
        if (::fstatat(::dirfd(folder), entry.d_name, &status, 0) != 0) {
            return std::nullopt;
        }
        if (S_ISREG(status.st_mode)) {
            return EntryKind::File;
        }
        return S_ISDIR(status.st_mode) ? std::optional(EntryKind::Folder) : std::nullopt;
    }
    default:
        return std::nullopt;
    }
}

bool isSpecialName(std::string_view name) {
    return name == "." || name == "..";
}

} // namespace

void listHostFolder(const std::string& hostFolder,
                    const std::function<void(std::string_view name, EntryKind kind)>& take) {
    const auto folder = openFolder(hostFolder);
    const UnseenNames unseen(hostFolder);
    errno = 0;
    while (const dirent* entry = ::readdir(folder.get())) {
        const std::string_view name = entry->d_name;
        if (!isSpecialName(name) && !unseen.contain(name)) {
            if (const auto kind = kindOf(folder.get(), *entry)) {
                take(name, *kind);
            }
        }
        errno = 0;
    }
    if (errno != 0) {
        raiseSystemError(errno);
    }
}

bool isHiddenOrSystem(const std::string& hostFolder, const std::string& name) {
    return UnseenNames(hostFolder).contain(name);
}

bool isListable(const std::string& hostFolder, const struct stat& status) {
    constexpr mode_t everybody = S_IRUSR | S_IRGRP | S_IROTH;
    if (!S_ISDIR(status.st_mode) || (status.st_mode & S_IRUSR) == 0) {
        return false;
    }
    return (status.st_mode & everybody) == everybody || ::access(hostFolder.c_str(), R_OK) == 0;
}

} // namespace tarnwick
