#include "platform/posix/mounts.hpp"

#include "platform/case_folding.hpp"
#include "platform/posix/folder_listing.hpp"
#include "platform/run_time_error.hpp"
#include "platform/windows_path.hpp"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

std::string withoutSlashAtEnd(std::string path) {
    path.erase(path.find_last_not_of('/') + 1);
    return path;
}

// From "/" on, without "." and ".." and a "/" at the end.
std::string fullHostPath(std::string_view hostPath) {
    std::error_code error;
    const auto full = fs::absolute(fs::path(hostPath), error);
    if (hostPath.empty() || error) {
        throw RunTimeError(ErrorNumber::PathNotFound, error.value());
    }
    return withoutSlashAtEnd(full.lexically_normal().string());
}

bool liesIn(std::string_view path, std::string_view folder) {
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

// So many of the first names of `path`, each with the "/" before it; all where there are fewer.
std::string_view firstNames(std::string_view path, int count) {
    std::size_t end = 0;
    for (; count > 0 && end < path.size(); --count) {
        end = std::min(path.find('/', end + 1), path.size());
    }
    return path.substr(0, end);
}

// Each name with a "\" before it. Blanks and dots at the end of a name are no part of it on
// Windows, so that nothing would be found under such a one.
std::string windowsNames(std::string_view hostNames) {
    std::string names;
    while (!hostNames.empty()) {
        const auto name = firstNames(hostNames, 1).substr(1);
        hostNames.remove_prefix(name.size() + 1);
        if (!isPossiblePath(name) || hasBackslash(name) || name.contains(':') ||
            name.ends_with('.') || name.ends_with(' ') || shownWhereOdd(name)) {
            throw RunTimeError(ErrorNumber::BadFileName);
        }
        names.append("\\").append(name);
    }
    return names;
}

} // namespace

Mounts Mounts::of(std::vector<Mount> list) {
    Mounts mounts;
    list.push_back({.volume = std::string(wholeMachine), .hostFolder = "/"});
    for (Mount& mount : list) {
        if (mounts.find(mount.volume) == nullptr) {
            mount.hostFolder = fullHostPath(mount.hostFolder);
            mounts.list_.push_back(std::move(mount));
        }
    }
    return mounts;
}

const Mount* Mounts::find(std::string_view volume) const {
    const auto mount = std::ranges::find_if(
        list_, [&](const Mount& each) { return equalIgnoringCase(each.volume, volume); });
    return mount == list_.end() ? nullptr : &*mount;
}

Mounts Mounts::below(std::string drivesRoot) {
    Mounts mounts;
    mounts.drivesRoot_ = std::move(drivesRoot);
    return mounts;
}

Mounts::Place Mounts::placeOf(std::string_view volume) const {
    if (!drivesRoot_.empty()) {
        return {.hostFolder = drivesRoot_,
                .names = isOnShare(volume)
                             ? R"(\unc)" + std::string(volume.substr(1))
                             : std::string{'\\', static_cast<char>(volume[0] | 0x20)}};
    }
    const Mount* mount = find(volume);
    if (mount == nullptr) {
        throw RunTimeError(isOnShare(volume) ? ErrorNumber::PathNotFound
                                             : ErrorNumber::DeviceUnavailable);
    }
    return {.hostFolder = mount->hostFolder, .names = {}};
}

std::string Mounts::windowsPath(std::string_view hostPath) const {
    const auto full = fullHostPath(hostPath);
    const auto& [volume, folder] = drivesRoot_.empty() ? longestAbove(full) : mountBelowRoot(full);
    const auto names = windowsNames(std::string_view(full).substr(folder.size()));
    return volume + (names.empty() && !isOnShare(volume) ? "\\" : names);
}

const Mount& Mounts::longestAbove(std::string_view hostPath) const {
    const auto length = [&](const Mount& mount) { // 0: it does not fit
        return liesIn(hostPath, mount.hostFolder) ? mount.hostFolder.size() + 1 : 0;
    };
    return *std::ranges::max_element(list_, {}, length); // the whole machine fits always
}

Mount Mounts::mountBelowRoot(std::string_view hostPath) const {
    if (!liesIn(hostPath, drivesRoot_)) {
        throw RunTimeError(ErrorNumber::PathNotFound);
    }
    const auto names = hostPath.substr(drivesRoot_.size());
    const auto drive = firstNames(names, 1);
    constexpr std::string_view unc = "/unc";
    if (drive.size() != 2 && drive != unc) {
        throw RunTimeError(ErrorNumber::PathNotFound);
    }
    const auto volume = drive == unc ? firstNames(names, 3) : drive;
    const auto shown = drive == unc ? '\\' + windowsNames(volume.substr(unc.size()))
                                    : upperCase(volume.substr(1)) + ':';
    return {.volume = shown, .hostFolder = drivesRoot_ + std::string(volume)};
}

} // namespace tarnwick
