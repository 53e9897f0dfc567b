#include "support/hosted_world.hpp"

#include "platform/run_time_error.hpp"
#include "platform/windows_path.hpp"
#include "support/file_bytes.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

using Place = TemporaryFolder::Place;

// The few files of a test fit many times. Who names a TMPDIR gets that.
fs::path folderFor(Place place) {
    constexpr std::uintmax_t needed = 256'000'000;
    const fs::path memory = "/dev/shm";
    std::error_code missing;
    const fs::space_info space = fs::space(memory, missing);
    const bool chosen = std::getenv("TMPDIR") != nullptr; // NOLINT(concurrency-mt-unsafe)
    const bool usable =
        !missing && space.available >= needed && ::access(memory.c_str(), W_OK) == 0;
    return place == Place::InMemory && usable && !chosen ? memory : fs::temp_directory_path();
}

std::string newFolder(Place place) {
    auto name = (folderFor(place) / "tarnwick-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder could be made: " + name);
    }
    return name;
}

void setMode(const std::string& hostPath, fs::perms bit) {
    fs::permissions(hostPath, bit, fs::perm_options::remove);
}

} // namespace

TemporaryFolder::TemporaryFolder(Place place) : hostPath_(newFolder(place)) {}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    for (auto entry = fs::recursive_directory_iterator(
             hostPath_, fs::directory_options::skip_permission_denied, ignored);
         entry != fs::recursive_directory_iterator(); entry.increment(ignored)) {
        if (entry->is_directory(ignored)) { // whose content could not be removed else
            fs::permissions(entry->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
        }
    }
    fs::remove_all(hostPath_, ignored);
}

HostedWorld::HostedWorld(std::string_view currentFolder, TemporaryFolder::Place place)
    : root_(place), files_(Mounts::below(root_.hostPath()), currentFolder) {
    makeDrive('C');
    makeFolder(currentFolder);
}

void HostedWorld::write(std::string_view path, std::string_view bytes) {
    const auto folder = path.substr(0, path.size() - lastPart(path).size());
    if (!folder.empty()) {
        makeFolder(folder);
    }
    putBytes(files_, path, bytes);
}

std::string HostedWorld::read(std::string_view path) const {
    return bytesOf(files_, path);
}

bool HostedWorld::exists(std::string_view path) const {
    try {
        return fs::exists(files_.hostPath(path));
    } catch (const RunTimeError&) {
        return false;
    }
}

void HostedWorld::makeFolder(std::string_view path) {
    if (files_.canListFolder(path)) {
        return;
    }
    while (path.ends_with('\\')) {
        path.remove_suffix(1);
    }
    const auto parent = path.substr(0, path.size() - lastPart(path).size());
    if (parent.size() == path.size()) {
        throw std::runtime_error("no such drive or share: " + std::string(path));
    }
    if (!parent.empty()) {
        makeFolder(parent);
    }
    files_.createFolder(path);
}

void HostedWorld::makeDrive(char letter) {
    fs::create_directories(fs::path(drivesRoot()) /
                           std::string(1, static_cast<char>(letter | 0x20)));
}

void HostedWorld::makeShare(std::string_view share) {
    std::string path = "unc/" + std::string(share.substr(2));
    std::ranges::replace(path, '\\', '/');
    fs::create_directories(fs::path(drivesRoot()) / path);
}

void HostedWorld::hide(std::string_view path) {
    const fs::path host(files_.hostPath(path));
    std::ofstream list(host.parent_path() / ".hidden", std::ios::app | std::ios::binary);
    list << host.filename().string() << '\n';
}

void HostedWorld::makeReadOnly(std::string_view path) {
    setMode(files_.hostPath(path),
            fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write);
}

void HostedWorld::makeUnlistable(std::string_view folder) {
    setMode(files_.hostPath(folder), fs::perms::all);
}

} // namespace tarnwick
