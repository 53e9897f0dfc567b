#include "platform/posix/posix_files.hpp"

#include "platform/posix/errors.hpp"
#include "platform/posix/folder_listing.hpp"
#include "platform/posix/posix_open_files.hpp"
#include "platform/wildcard.hpp"
#include "platform/windows_path.hpp"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <optional>
#include <utility>

namespace tarnwick {
namespace {

bool isFile(const std::optional<struct stat>& status) {
    return status && S_ISREG(status->st_mode);
}

// The names in the folder's own order.
template <typename Matches>
Listing unsortedListing(const std::string& hostFolder, EntryKind wanted, const Matches& matches) {
    Listing listing;
    listHostFolder(hostFolder, [&](std::string_view name, EntryKind kind) {
        if (kind != wanted || !matches(name)) {
            return;
        }
        if (auto shown = shownWhereOdd(name)) {
            leaveOut(*std::move(shown), listing.leftOut);
        } else {
            listing.names.emplace_back(name);
        }
    });
    return listing;
}

} // namespace

PosixFiles::PosixFiles(Mounts mounts, std::string_view currentFolder)
    : paths_(std::move(mounts), asFolder(currentFolder)) {}

bool PosixFiles::canListFolder(std::string_view folder) const {
    try {
        const auto [host, status] = paths_.find(asFolder(folder));
        return status && isListable(host, *status);
    } catch (const RunTimeError&) {
        return false;
    }
}

std::string PosixFiles::firstNormalFile(std::string_view path) const {
    if (!isPossiblePattern(path)) {
        throw RunTimeError(ErrorNumber::BadFileName);
    }
    const auto pattern = lastPart(path);
    if (pattern.empty()) {
        return {};
    }
    if (hasWildcard(pattern)) {
        const auto folder = std::string(path.substr(0, path.size() - pattern.size())) + '.';
        const auto names =
            unsortedListing(paths_.hostPath(folder), EntryKind::File, [&](std::string_view name) {
                return matchesWildcard(name, pattern);
            }).names;
        const auto first = std::ranges::min_element(names, nameLess);
        return first == names.end() ? std::string() : *first;
    }
    const auto [host, status] = paths_.find(path);
    if (!isFile(status)) {
        return {};
    }
    return host.substr(host.rfind('/') + 1);
}

Listing PosixFiles::listFiles(std::string_view folder, std::string_view patterns) const {
    auto listing =
        unsortedListing(paths_.hostPath(asFolder(folder)), EntryKind::File,
                        [&](std::string_view name) { return matchesAnyWildcard(name, patterns); });
    sortNames(listing.names);
    return listing;
}

Listing PosixFiles::listFolders(std::string_view folder) const {
    auto listing = unsortedListing(paths_.hostPath(asFolder(folder)), EntryKind::Folder,
                                   [](std::string_view) { return true; });
    sortNames(listing.names);
    return listing;
}

std::vector<std::string> PosixFiles::drives() const {
    std::vector<std::string> drives;
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        const auto drive = std::string(1, letter) + ':';
        if (canListFolder(drive)) {
            drives.push_back(drive);
        }
    }
    return drives;
}

std::string PosixFiles::currentFolder() const {
    return paths_.currentFolder();
}

std::string PosixFiles::shortPath(std::string_view path) const {
    if (!paths_.find(path).status) {
        raiseSystemError(ENOENT);
    }
    return std::string(path);
}

PosixFiles::Found PosixFiles::look(std::string_view path) const {
    // Mostly every name is spelled as it is on the disk, and needs no search.
    auto host = paths_.spelled(path);
    auto status = statusIfThere(host, Links::Themselves);
    if (!status) {
        host = paths_.hostPath(path);
        status = statusIfThere(host, Links::Themselves);
    }
    const bool isLink = status && S_ISLNK(status->st_mode);
    if (isLink) {
        status = statusIfThere(host, Links::Followed);
    }
    return {.path = std::move(host), .status = status, .isLink = isLink};
}

std::unique_ptr<InputFile> PosixFiles::openForReading(std::string_view path) const {
    auto file = openIfThere(paths_.spelled(path));
    if (!file.isOpen()) {
        file = openIfThere(paths_.hostPath(path));
    }
    if (!file.isOpen()) {
        raiseSystemError(ENOENT);
    }
    return readFrom(std::move(file));
}

std::unique_ptr<OutputFile> PosixFiles::create(std::string_view path) {
    return createHostFile(paths_.hostPath(path), Existing::Emptied);
}

std::unique_ptr<OutputFile> PosixFiles::createNew(std::string_view path) {
    try {
        return createHostFile(paths_.spelled(path), Existing::Refused);
    } catch (const RunTimeError& error) {
        if (!error.is(ErrorNumber::FileNotFound) && !error.is(ErrorNumber::PathNotFound)) {
            throw;
        }
    }
    return createHostFile(paths_.placeFor(path), Existing::Refused); // its folder in another case
}

std::unique_ptr<OutputFile> PosixFiles::append(std::string_view path) {
    return createHostFile(paths_.hostPath(path), Existing::Kept);
}

void PosixFiles::remove(std::string_view path) {
    const Found found = look(path);
    requireReplaceable(requireFile(found.status));
    if (::unlink(found.path.c_str()) != 0) {
        raiseSystemError(errno);
    }
}

void PosixFiles::createFolder(std::string_view path) {
    constexpr mode_t everybody = 0777; // less what the user's mask takes away
    if (::mkdir(paths_.hostPath(path).c_str(), everybody) != 0) {
        raiseSystemError(errno);
    }
}

void PosixFiles::moveOver(std::string_view from, std::string_view to) {
    move(from, to, Access::OfTarget);
}

void PosixFiles::replace(std::string_view from, std::string_view to) {
    move(from, to, Access::OfSource);
}

void PosixFiles::move(std::string_view from, std::string_view to, Access access) {
    const Found source = look(from);
    const mode_t mode = requireFile(source.status).st_mode;
    const Found target = look(to);
    if (access == Access::OfTarget && target.isLink) {
        raiseSystemError(EACCES);
    }
    mode_t keptMode = mode;
    if (target.status) {
        requireReplaceable(*target.status);
        keptMode = access == Access::OfTarget ? target.status->st_mode : mode;
    }
    const auto whoseModeChanges = keptMode == mode ? FileDescriptor() : openIfThere(source.path);
    // The file systems of today write the content of a file before its rename over another: to wait
    // for the medium here would cost many times what rewriting a page does.
    if (std::rename(source.path.c_str(), target.path.c_str()) != 0) {
        raiseSystemError(errno);
    }
    if (whoseModeChanges.isOpen()) { // as far as the system lets this user
        static_cast<void>(::fchmod(whoseModeChanges.get(), keptMode & 07777U));
    }
}

} // namespace tarnwick
