#include "platform/hosted/drives_root.hpp"

#include "platform/case_folding.hpp"
#include "platform/run_time_error.hpp"
#include "platform/wildcard.hpp"
#include "platform/windows_path.hpp"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace tarnwick {
namespace {

struct FolderCloser {
    void operator()(DIR* folder) const noexcept { ::closedir(folder); }
};

using Folder = std::unique_ptr<DIR, FolderCloser>;

std::optional<struct stat> statusOf(const std::string& hostPath) {
    struct stat status{};
    return ::stat(hostPath.c_str(), &status) == 0 ? std::optional(status) : std::nullopt;
}

bool isFolder(const std::string& hostPath) {
    const auto status = statusOf(hostPath);
    return status && S_ISDIR(status->st_mode);
}

// The entry of that folder whose name is `name` in any case; the first of several by name.
std::optional<std::string> findIgnoringCase(const Folder& folder, std::string_view name) {
    std::optional<std::string> found;
    while (const dirent* entry = folder ? ::readdir(folder.get()) : nullptr) {
        const std::string_view candidate = entry->d_name;
        if (equalIgnoringCase(candidate, name) && (!found || nameLess(candidate, *found))) {
            found = candidate;
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
    const auto found = findIgnoringCase(Folder(::opendir(hostPath.c_str())), name);
    hostPath.append("/").append(found ? std::string_view(*found) : name);
    return found.has_value();
}

constexpr std::size_t usualDepth = 8; // of a path, in names

std::vector<std::string> split(std::string_view path) {
    std::vector<std::string> names;
    names.reserve(usualDepth);
    while (!path.empty()) {
        const auto end = std::min(path.find('\\'), path.size());
        if (end > 0) {
            names.emplace_back(path.substr(0, end));
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return names;
}

// Resolves "." and "..", and drops the blanks and dots at the end of the last name, all as
// Windows does: they are no part of it.
std::vector<std::string> normalized(std::vector<std::string> names) {
    std::vector<std::string> result;
    result.reserve(names.size());
    for (auto& name : names) {
        if (name == "..") {
            if (!result.empty()) {
                result.pop_back();
            }
        } else if (name != ".") {
            result.push_back(std::move(name));
        }
    }
    if (!result.empty()) {
        auto& last = result.back();
        last.erase(last.find_last_not_of(" .") + 1);
        if (last.empty()) {
            result.pop_back();
        }
    }
    return result;
}

std::vector<std::string> hostNames(std::string_view volume) {
    if (!volume.starts_with(R"(\\)")) {
        return {std::string(1, static_cast<char>(volume[0] | 0x20))};
    }
    auto names = split(volume);
    names.insert(names.begin(), "unc");
    return names;
}

} // namespace

DrivesRoot::DrivesRoot(std::string hostFolder, std::string_view currentFolder)
    : hostFolder_(std::move(hostFolder)) {
    currentFolder_ = fullPath(currentFolder);
}

HostEntry DrivesRoot::find(std::string_view path) const {
    const auto parsed = parse(path);
    const auto volume = hostNames(parsed.volume);
    // Mostly every name is spelled as it is on the disk: one look instead of one for each folder.
    auto exact = hostFolder_;
    for (const auto& names : {std::cref(volume), std::cref(parsed.names)}) {
        for (const auto& name : names.get()) {
            exact.append("/").append(name);
        }
    }
    if (auto status = statusOf(exact)) {
        return {.path = std::move(exact), .status = status};
    }
    // And mostly it is only the last one that is not there.
    auto parent = exact.substr(0, exact.rfind('/'));
    const Folder folder(parsed.names.empty() ? nullptr : ::opendir(parent.c_str()));
    if (folder) {
        const auto found = findIgnoringCase(folder, parsed.names.back());
        auto host = found ? parent.append("/").append(*found) : exact;
        auto status = found ? statusOf(host) : std::nullopt;
        return {.path = std::move(host), .status = status};
    }
    auto host = hostFolder_;
    const bool onDrive = !parsed.volume.starts_with(R"(\\)");
    for (const auto& name : volume) {
        if (!descend(host, name)) {
            throw RunTimeError(onDrive ? ErrorNumber::DeviceUnavailable
                                       : ErrorNumber::PathNotFound);
        }
    }
    for (std::size_t i = 0; i < parsed.names.size(); ++i) {
        const bool last = i + 1 == parsed.names.size();
        descend(host, parsed.names[i]);
        if (!last && !isFolder(host)) {
            throw RunTimeError(ErrorNumber::PathNotFound);
        }
    }
    auto status = statusOf(host);
    return {.path = std::move(host), .status = status};
}

std::string DrivesRoot::fullPath(std::string_view path) const {
    const auto parsed = parse(path);
    auto full = parsed.volume;
    for (const auto& name : parsed.names) {
        full.append("\\").append(name);
    }
    return parsed.names.empty() && !full.starts_with(R"(\\)") ? full + '\\' : full;
}

std::string DrivesRoot::volume(std::string_view path) const {
    if (path.size() >= 2 && path[1] == ':') {
        return upperCase(path.substr(0, 2));
    }
    return upperCase(parse(path).volume);
}

DrivesRoot::Path DrivesRoot::parse(std::string_view path) const {
    if (!isPossiblePath(path)) {
        throw RunTimeError(ErrorNumber::BadFileName);
    }
    if (path.empty()) {
        throw RunTimeError(ErrorNumber::PathNotFound);
    }
    std::string text(path.starts_with(R"(\\?\)") ? path.substr(4) : path);
    std::ranges::replace(text, '/', '\\');
    if (text.starts_with(R"(\\)")) {
        auto names = split(text);
        if (names.size() < 2) {
            throw RunTimeError(ErrorNumber::PathNotFound);
        }
        auto share = R"(\\)" + names[0] + '\\' + names[1];
        names.erase(names.begin(), names.begin() + 2);
        return {.volume = std::move(share), .names = normalized(std::move(names))};
    }
    if (text.size() >= 2 && text[1] == ':') {
        auto drive = text.substr(0, 2);
        text.erase(0, 2);
        const bool onCurrentDrive = equalIgnoringCase(drive, currentFolder_.substr(0, 2));
        if (text.starts_with('\\') || !onCurrentDrive) {
            return {.volume = upperCase(drive), .names = normalized(split(text))};
        }
    }
    auto current = parse(currentFolder_);
    auto names = text.starts_with('\\') ? std::vector<std::string>{} : std::move(current.names);
    std::ranges::move(split(text), std::back_inserter(names));
    return {.volume = std::move(current.volume), .names = normalized(std::move(names))};
}

} // namespace tarnwick
