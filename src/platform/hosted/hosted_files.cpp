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

// A folder as it is given to be listed: "C:" is the drive's root.
std::string asFolder(std::string_view folder) {
    return folder.empty() ? std::string() : std::string(folder) + '\\';
}

// In the folder's own order.
std::vector<std::string> namesIn(const std::string& hostFolder, EntryKind wanted,
                                 std::string_view patterns) {
    std::vector<std::string> names;
    listHostFolder(hostFolder, [&](std::string_view name, EntryKind kind) {
        if (kind == wanted && matchesAnyWildcard(name, patterns)) {
            names.emplace_back(name);
        }
    });
    return names;
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
        const auto names = namesIn(root_.hostPath(folder), EntryKind::File, pattern);
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

std::vector<std::string> HostedFiles::listFiles(std::string_view folder,
                                                std::string_view patterns) const {
    auto names = namesIn(root_.hostPath(asFolder(folder)), EntryKind::File, patterns);
    sortNames(names);
    return names;
}

std::vector<std::string> HostedFiles::listFolders(std::string_view folder) const {
    auto names = namesIn(root_.hostPath(asFolder(folder)), EntryKind::Folder, "");
    sortNames(names);
    return names;
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
    const auto [hostFrom, source] = look(from);
    requireFile(source);
    requireNotInUse(source);
    const auto [hostTo, target] = look(to);
    if (target.isOpen()) {
        requireReplaceable(target);
        takeOverMode(source, target);
    }
    if (root_.volume(from) != root_.volume(to)) {
        raiseSystemError(EXDEV);
    }
    // The file systems of today write the content of a file before its rename over another: to wait
    // for the medium here would cost many times what rewriting a page does.
    if (std::rename(hostFrom.c_str(), hostTo.c_str()) != 0) {
        raiseSystemError(errno);
    }
}

} // namespace tarnwick
