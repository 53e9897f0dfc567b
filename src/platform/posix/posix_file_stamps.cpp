#include "platform/posix/posix_file_stamps.hpp"

#include "platform/posix/errors.hpp"
#include "platform/posix/folder_listing.hpp"

#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <system_error>
#include <thread>

namespace tarnwick {
namespace {

std::optional<Stamp> stampFrom(const struct stat& status) {
    if (!S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    constexpr std::int64_t nanoseconds = 1'000'000'000;
    return Stamp{.size = static_cast<std::uint64_t>(status.st_size),
                 .time = status.st_mtim.tv_sec * nanoseconds + status.st_mtim.tv_nsec};
}

// The names of what is a file, or may be one: a link, or what this file system does not tell.
StampedListing possibleFiles(ListedFolder& folder) {
    StampedListing listing;
    while (const dirent* entry = folder.next()) {
        const auto type = entry->d_type;
        if (entry->d_name[0] == '.') { // hidden, as people mean it here
            continue;
        }
        if (type != DT_REG && type != DT_LNK && type != DT_UNKNOWN) {
            continue;
        }
        if (auto shown = shownWhereOdd(entry->d_name)) {
            const auto status = folder.statusOf(entry->d_name);
            if (status && stampFrom(*status)) {
                leaveOut(*std::move(shown), listing.leftOut);
            }
        } else {
            listing.files.push_back({.name = entry->d_name, .stamp = {}});
        }
    }
    return listing;
}

// Asks for the stamps of all files; those that are none lose their names.
void askForStamps(const ListedFolder& folder, std::vector<StampedFile>& files) {
    constexpr std::size_t portion = 64; // that a thread takes at a time
    std::atomic<std::size_t> taken = 0;
    const auto work = [&] {
        for (auto begin = taken.fetch_add(portion); begin < files.size();
             begin = taken.fetch_add(portion)) {
            const auto end = std::min(begin + portion, files.size());
            for (auto at = begin; at < end; ++at) {
                const auto status = folder.statusOf(files[at].name.c_str());
                const auto stamp = status ? stampFrom(*status) : std::nullopt;
                if (stamp) {
                    files[at].stamp = *stamp;
                } else {
                    files[at].name.clear();
                }
            }
        }
    };
    constexpr std::size_t mostThreads = 8;
    const auto threads = std::min(files.size() / portion, mostThreads);
    std::vector<std::jthread> others;
    try {
        while (others.size() + 1 < threads) {
            others.emplace_back(work);
        }
    } catch (const std::system_error&) { // NOLINT(bugprone-empty-catch): fewer do it as well
    }
    work();
}

} // namespace

namespace {

// `hostPath()` is asked only where nothing is at `spelled`.
template <typename HostPath>
std::optional<Stamp> stampAt(const std::string& spelled, HostPath&& hostPath) {
    struct stat status{};
    if (::stat(spelled.c_str(), &status) == 0) {
        return stampFrom(status);
    }
    if (errno == EACCES) {
        raiseSystemError(EACCES);
    }
    try {
        return ::stat(hostPath().c_str(), &status) == 0 ? stampFrom(status) : std::nullopt;
    } catch (const RunTimeError& error) {
        if (!error.is(ErrorNumber::PathNotFound)) {
            throw;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<Stamp> PosixFileStamps::stampOf(std::string_view path) const {
    return stampAt(paths_.spelled(path), [&] { return paths_.hostPath(path); });
}

std::optional<Stamp> PosixFileStamps::stampOfExact(std::string_view path) const {
    return stampAt(paths_.spelled(path), [&] { return paths_.placeFor(path); });
}

StampedListing PosixFileStamps::listStamped(std::string_view folder) const {
    ListedFolder open(paths_.hostPath(asFolder(folder)));
    auto listing = possibleFiles(open);
    askForStamps(open, listing.files);
    std::erase_if(listing.files, [](const StampedFile& file) { return file.name.empty(); });
    return listing;
}

} // namespace tarnwick
