#include "platform/win32/win32_file_stamps.hpp"

#include "platform/run_time_error.hpp"
#include "platform/win32/folder_search.hpp"
#include "platform/win32/handle.hpp"
#include "platform/win32/system_text.hpp"
#include "platform/windows_path.hpp"

#include <windows.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace tarnwick {
namespace {

std::uint64_t joined(DWORD high, DWORD low) noexcept {
    return (std::uint64_t{high} << 32U) | low;
}

// The system counts in tenths of a microsecond since 1601. A time that does not fit, some centuries
// away, is the nearest that does.
std::int64_t nanoseconds(FILETIME time) noexcept {
    constexpr std::int64_t from1601 = 116'444'736'000'000'000;
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max() / 100;
    const auto ticks = static_cast<std::int64_t>(joined(time.dwHighDateTime, time.dwLowDateTime));
    return std::clamp(ticks - from1601, -most, most) * 100;
}

// WIN32_FIND_DATAW and BY_HANDLE_FILE_INFORMATION have the same members.
template <typename Information>
Stamp stampFrom(const Information& about) noexcept {
    return {.size = joined(about.nFileSizeHigh, about.nFileSizeLow),
            .time = nanoseconds(about.ftLastWriteTime)};
}

// Of what the link leads to; nothing where that is no file.
std::optional<Stamp> stampOfTarget(const std::string& link) {
    constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const Handle opened(CreateFileW(toWidePath(link).c_str(), FILE_READ_ATTRIBUTES, shareAll,
                                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION about{};
    if (!opened.isOpen() || GetFileInformationByHandle(opened.get(), &about) == 0 ||
        (about.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return std::nullopt;
    }
    return stampFrom(about);
}

} // namespace

std::optional<Stamp> Win32FileStamps::stampOf(std::string_view path) const {
    const std::string file = possible(path);
    try {
        const auto entry = findEntry(file);
        if (!entry || (entry->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            return std::nullopt;
        }
        return isLink(*entry) ? stampOfTarget(file) : std::optional(stampFrom(*entry));
    } catch (const RunTimeError& error) {
        if (!error.is(ErrorNumber::PathNotFound)) {
            throw;
        }
        return std::nullopt;
    }
}

StampedListing Win32FileStamps::listStamped(std::string_view folder) const {
    StampedListing listing;
    const std::string bare = possible(folder);
    const auto take = [&](std::string name, const WIN32_FIND_DATAW& entry) {
        const auto stamp =
            isLink(entry) ? stampOfTarget(joinPath(bare, name)) : std::optional(stampFrom(entry));
        if (stamp) {
            listing.files.push_back({.name = std::move(name), .stamp = *stamp});
        }
    };
    listing.leftOut =
        searchByName(bare, EntryKind::File, false, [](std::string_view) { return true; }, take);
    return listing;
}

} // namespace tarnwick
