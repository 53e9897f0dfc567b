#include "platform/hosted/hosted_files.hpp"

#include "platform/hosted/errors.hpp"
#include "platform/hosted/folder_listing.hpp"
#include "platform/hosted/hosted_open_files.hpp"
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

bool isLink(const std::string& hostPath) {
    struct stat status{};
    return ::lstat(hostPath.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

// A folder as it is given to be listed: "C:" is the drive's root.
std::string asFolder(std::string_view folder) {
    return folder.empty() ? std::string() : std::string(folder) + '\\';
}

// The bytes that are no character in code page 1252. A name that holds one is left out of
// listings, as one is that Windows cannot tell in its code page.
constexpr std::string_view noCharacters = "\x81\x8D\x8F\x90\x9D";

std::string shownName(std::string_view name) {
    std::string shown;
    for (const char character : name) {
        if (noCharacters.contains(character)) {
            shown += shownByNumber(static_cast<unsigned char>(character));
        } else {
            shown += character;
        }
    }
    return shown;
}

// The names in the folder's own order.
template <typename Matches>
Listing unsortedListing(const std::string& hostFolder, EntryKind wanted, const Matches& matches) {
    Listing listing;
    listHostFolder(hostFolder, [&](std::string_view name, EntryKind kind) {
        if (kind != wanted || !matches(name)) {
            return;
        }
        if (name.find_first_of(noCharacters) == std::string_view::npos) {
            listing.names.emplace_back(name);
            return;
        }
        leaveOut(shownName(name), listing.leftOut);
    });
    return listing;
}

} // namespace

HostedFiles::HostedFiles(std::string drivesRoot, std::string_view currentFolder)
    : root_(std::move(drivesRoot), asFolder(currentFolder)) {}

bool HostedFiles::canListFolder(std::string_view folder) const {
    try {
        const auto [host, status] = root_.find(asFolder(folder));
        return status && isListable(host, *status);
    } catch (const RunTimeError&) {
        return false;
    }
}

std::string HostedFiles::firstNormalFile(std::string_view path) const {
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
            unsortedListing(root_.hostPath(folder), EntryKind::File, [&](std::string_view name) {
                return matchesWildcard(name, pattern);
            }).names;
        const auto first = std::ranges::min_element(names, nameLess);
        return first == names.end() ? std::string() : *first;
    }
    const auto [host, status] = root_.find(path);
    if (!isFile(status)) {
        return {};
    }
    const auto slash = host.rfind('/');
    auto name = host.substr(slash + 1);
    return isHiddenOrSystem(host.substr(0, slash), name) ? std::string() : std::move(name);
}

Listing HostedFiles::listFiles(std::string_view folder, std::string_view patterns) const {
    auto listing =
        unsortedListing(root_.hostPath(asFolder(folder)), EntryKind::File,
                        [&](std::string_view name) { return matchesAnyWildcard(name, patterns); });
    sortNames(listing.names);
    return listing;
}

Listing HostedFiles::listFolders(std::string_view folder) const {
    auto listing = unsortedListing(root_.hostPath(asFolder(folder)), EntryKind::Folder,
                                   [](std::string_view) { return true; });
    sortNames(listing.names);
    return listing;
}

std::vector<std::string> HostedFiles::drives() const {
    std::vector<std::string> drives;
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        const auto drive = std::string(1, letter) + ':';
        if (canListFolder(drive)) {
            drives.push_back(drive);
        }
    }
    return drives;
}

std::string HostedFiles::currentFolder() const {
    return root_.currentFolder();
}

std::string HostedFiles::shortPath(std::string_view path) const {
    if (!root_.find(path).status) {
        raiseSystemError(ENOENT);
    }
    return std::string(path);
}

HostedFiles::HostFile HostedFiles::look(std::string_view path) const {
    // Mostly every name is spelled as it is on the disk, and needs no search.
    auto host = root_.spelled(path);
    auto file = openIfThere(host);
    if (!file.isOpen()) {
        host = root_.hostPath(path);
        file = openIfThere(host);
    }
    return {.path = std::move(host), .file = std::move(file)};
}

std::unique_ptr<InputFile> HostedFiles::openForReading(std::string_view path) const {
    auto [host, file] = look(path);
    if (!file.isOpen()) {
        raiseSystemError(ENOENT);
    }
    return readFrom(std::move(file));
}

std::unique_ptr<OutputFile> HostedFiles::create(std::string_view path) {
    return createHostFile(root_.hostPath(path), Existing::Emptied);
}

std::unique_ptr<OutputFile> HostedFiles::createNew(std::string_view path) {
    return createHostFile(root_.placeFor(path), Existing::Refused);
}

std::unique_ptr<OutputFile> HostedFiles::append(std::string_view path) {
    return createHostFile(root_.hostPath(path), Existing::Kept);
}

void HostedFiles::remove(std::string_view path) {
    const auto [host, file] = look(path);
    requireFile(file);
    requireReplaceable(file);
    if (::unlink(host.c_str()) != 0) {
        raiseSystemError(errno);
    }
}

void HostedFiles::createFolder(std::string_view path) {
    constexpr mode_t everybody = 0777; // less what the user's mask takes away
    if (::mkdir(root_.hostPath(path).c_str(), everybody) != 0) {
        raiseSystemError(errno);
    }
}

void HostedFiles::moveOver(std::string_view from, std::string_view to) {
    move(from, to, Access::OfTarget);
}

void HostedFiles::replace(std::string_view from, std::string_view to) {
    move(from, to, Access::OfSource);
}

void HostedFiles::move(std::string_view from, std::string_view to, Access access) {
    const auto [hostFrom, source] = look(from);
    requireFile(source);
    requireNotInUse(source);
    const auto [hostTo, target] = look(to);
    if (access == Access::OfTarget && isLink(hostTo)) {
        raiseSystemError(EACCES);
    }
    if (target.isOpen()) {
        requireReplaceable(target);
    }
    if (root_.volume(from) != root_.volume(to)) {
        raiseSystemError(EXDEV);
    }
    // The file systems of today write the content of a file before its rename over another: to wait
    // for the medium here would cost many times what rewriting a page does.
    if (std::rename(hostFrom.c_str(), hostTo.c_str()) != 0) {
        raiseSystemError(errno);
    }
    if (access == Access::OfTarget && target.isOpen()) {
        takeOverMode(source, target);
    }
}

} // namespace tarnwick
