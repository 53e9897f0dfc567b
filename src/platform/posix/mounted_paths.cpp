#include "platform/posix/mounted_paths.hpp"

#include "platform/case_folding.hpp"
#include "platform/posix/file_descriptor.hpp"
#include "platform/run_time_error.hpp"
#include "platform/wildcard.hpp"
#include "platform/windows_path.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace tarnwick {
namespace {

// The root of the machine is "" before the names below it.
std::string orRoot(const std::string& hostPath) {
    return hostPath.empty() ? "/" : hostPath;
}

std::optional<struct stat> statusOf(const std::string& hostPath) {
    struct stat status{};
    return ::stat(hostPath.c_str(), &status) == 0 ? std::optional(status) : std::nullopt;
}

bool isFolder(const std::string& hostPath) {
    const auto status = statusOf(hostPath);
    return status && S_ISDIR(status->st_mode);
}

FileDescriptor openFolder(const std::string& hostPath) {
    return FileDescriptor(::open(hostPath.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

// The entry of that folder whose name is `name` in any case; the first of several by name.
// Reads the folder as the system gives it: opendir asks and allocates more than most folders hold,
// and this is done for every name that is not there.
std::optional<std::string> findIgnoringCase(const FileDescriptor& folder, std::string_view name) {
    std::optional<std::string> found;
    alignas(dirent64) std::array<char, 8192> block; // NOLINT(*-member-init): filled below
    ssize_t count = 0;
    while ((count = ::getdents64(folder.get(), block.data(), block.size())) > 0) {
        for (ssize_t at = 0; at < count;) {
            const auto& entry = *reinterpret_cast<const dirent64*>(block.data() + at);
            const std::string_view candidate = entry.d_name;
            if (equalIgnoringCase(candidate, name) && (!found || nameLess(candidate, *found))) {
                found = candidate;
            }
            at += entry.d_reclen;
        }
    }
    return found;
}

// Goes one name deeper; whether that name exists there.
bool descend(std::string& hostPath, std::string_view name) {
    std::string exact = hostPath + '/' + std::string(name);
    if (statusOf(exact)) {
        hostPath = std::move(exact);
        return true;
    }
    const auto found = findIgnoringCase(openFolder(orRoot(hostPath)), name);
    hostPath.append("/").append(found ? std::string_view(*found) : name);
    return found.has_value();
}

// The names in it; they refer to `path`.
std::vector<std::string_view> split(std::string_view path) {
    std::vector<std::string_view> names;
    while (!path.empty()) {
        const auto name = path.substr(0, path.find('\\'));
        if (!name.empty()) {
            names.push_back(name);
        }
        path.remove_prefix(std::min(name.size() + 1, path.size()));
    }
    return names;
}

// The names of `path`, each with a "\" before it. Resolves "." and "..", and drops the blanks and
// dots at the end of the last name, all as Windows does: they are no part of it.
std::string normalized(std::string_view path) {
    std::string names;
    names.reserve(path.size() + 1);
    while (!path.empty()) {
        const auto name = path.substr(0, path.find('\\'));
        if (name == "..") {
            names.erase(std::min(names.rfind('\\'), names.size()));
        } else if (!name.empty() && name != ".") {
            names.append("\\").append(name);
        }
        path.remove_prefix(std::min(name.size() + 1, path.size()));
    }
    names.erase(names.find_last_not_of(" .") + 1);
    if (names.ends_with('\\')) {
        names.pop_back();
    }
    return names;
}

} // namespace

std::string asFolder(std::string_view folder) {
    return folder.empty() ? std::string() : std::string(folder) + '\\';
}

MountedPaths::MountedPaths(Mounts mounts, std::string_view currentFolder)
    : mounts_(std::move(mounts)) {
    currentFolder_ = fullPath(currentFolder);
}

std::string MountedPaths::spelled(const Path& path) const {
    const auto [folder, volume] = mounts_.placeOf(path.volume);
    std::string host;
    host.reserve(folder.size() + volume.size() + path.names.size());
    host.append(folder).append(volume).append(path.names);
    std::replace(host.begin() + static_cast<std::ptrdiff_t>(folder.size()), host.end(), '\\', '/');
    return orRoot(host);
}

std::string MountedPaths::spelled(std::string_view path) const {
    return spelled(parse(path));
}

HostEntry MountedPaths::find(std::string_view path) const {
    const auto parsed = parse(path);
    // Mostly every name is spelled as it is on the disk: one look instead of one for each folder.
    auto exact = spelled(parsed);
    if (auto status = statusOf(exact)) {
        return {.path = std::move(exact), .status = status};
    }
    return search(parsed, std::move(exact));
}

std::string MountedPaths::placeFor(std::string_view path) const {
    const auto parsed = parse(path);
    auto exact = spelled(parsed);
    const auto name = lastPart(parsed.names);
    if (name.empty() || isFolder(orRoot(exact.substr(0, exact.size() - name.size() - 1)))) {
        return exact;
    }
    const auto folders = parsed.names.size() - name.size() - 1;
    const auto [parent, status] =
        findNameByName({.volume = parsed.volume, .names = parsed.names.substr(0, folders)});
    if (!status || !S_ISDIR(status->st_mode)) {
        throw RunTimeError(ErrorNumber::PathNotFound);
    }
    return parent + '/' + std::string(name);
}

HostEntry MountedPaths::search(const Path& parsed, std::string exact) const {
    // Mostly it is only the last name that is not there as spelled.
    const auto name = lastPart(parsed.names);
    auto parent = exact.substr(0, exact.size() - name.size() - 1);
    if (const auto folder = openFolder(orRoot(parent)); folder.isOpen() && !name.empty()) {
        const auto found = findIgnoringCase(folder, name);
        auto host = found ? parent.append("/").append(*found) : std::move(exact);
        auto status = found ? statusOf(host) : std::nullopt;
        return {.path = std::move(host), .status = status};
    }
    return findNameByName(parsed);
}

std::string MountedPaths::hostVolume(std::string_view volume) const {
    auto [host, names] = mounts_.placeOf(volume);
    bool exists = isFolder(orRoot(host));
    for (const auto name : split(names)) {
        exists = exists && descend(host, name);
    }
    if (!exists) {
        throw RunTimeError(isOnShare(volume) ? ErrorNumber::PathNotFound
                                             : ErrorNumber::DeviceUnavailable);
    }
    return host;
}

HostEntry MountedPaths::findNameByName(const Path& path) const {
    auto host = hostVolume(path.volume);
    const auto names = split(path.names);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool last = i + 1 == names.size();
        descend(host, names[i]);
        if (!last && !isFolder(host)) {
            throw RunTimeError(ErrorNumber::PathNotFound);
        }
    }
    host = orRoot(host);
    auto status = statusOf(host);
    return {.path = std::move(host), .status = status};
}

std::string MountedPaths::fullPath(std::string_view path) const {
    auto [volume, names] = parse(path);
    const bool isRootOfDrive = names.empty() && !isOnShare(volume);
    return volume + (isRootOfDrive ? "\\" : names);
}

std::string MountedPaths::volume(std::string_view path) const {
    if (beginsWithDrive(path)) {
        return upperCase(path.substr(0, 2));
    }
    return upperCase(parse(path).volume);
}

MountedPaths::Path MountedPaths::parse(std::string_view path) const {
    if (!isPossiblePath(path)) {
        throw RunTimeError(ErrorNumber::BadFileName);
    }
    if (path.empty()) {
        throw RunTimeError(ErrorNumber::PathNotFound);
    }
    std::string text(path.starts_with(R"(\\?\)") ? path.substr(4) : path);
    std::ranges::replace(text, '/', '\\');
    if (isOnShare(text)) {
        return parseShare(text);
    }
    std::string_view rest = text;
    if (beginsWithDrive(rest)) {
        const auto drive = rest.substr(0, 2);
        rest.remove_prefix(2);
        const bool onCurrentDrive = equalIgnoringCase(drive, currentFolder_.substr(0, 2));
        if (rest.starts_with('\\') || !onCurrentDrive) {
            return {.volume = upperCase(drive), .names = normalized(rest)};
        }
    }
    auto [volume, names] = parse(currentFolder_);
    return {.volume = std::move(volume),
            .names = normalized(rest.starts_with('\\') ? rest : names.append("\\").append(rest))};
}

// `path` begins with "\\".
MountedPaths::Path MountedPaths::parseShare(std::string_view path) {
    const auto names = split(path);
    if (names.size() < 2) {
        throw RunTimeError(ErrorNumber::PathNotFound);
    }
    return {.volume = R"(\\)" + std::string(names[0]) + '\\' + std::string(names[1]),
            .names = normalized({names[1].end(), path.end()})};
}

} // namespace tarnwick
