#pragma once

#include "platform/left_out.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// What tells whether a file was written since: as exact as the file system keeps it.
struct Stamp {
    std::uint64_t size = 0; // bytes
    std::int64_t time =
        0; // of the last change, in nanoseconds since 1970 by the file system's clock

    bool operator==(const Stamp&) const = default;
};

struct StampedFile {
    std::string name; // without its folder
    Stamp stamp;

    bool operator==(const StampedFile&) const = default;
};

// As Listing in files.hpp.
struct StampedListing {
    std::vector<StampedFile> files;
    LeftOut leftOut;

    bool operator==(const StampedListing&) const = default;
};

// Asks for the stamps of files; safe to be called from several threads at once.
class FileStamps {
  public:
    virtual ~FileStamps() = default;

    // Nothing where there is no such file: a folder is none. Raises 75 (not allowed), 68, 71, 52.
    [[nodiscard]] virtual std::optional<Stamp> stampOf(std::string_view path) const = 0;

    // The same of a file that is spelled so, where the system tells capitals from small letters:
    // there it is much quicker where there is none.
    [[nodiscard]] virtual std::optional<Stamp> stampOfExact(std::string_view path) const {
        return stampOf(path);
    }

    // All normal files of the folder (see Files::firstNormalFile), in its own order: one question
    // to the file system where it can answer so, and else several at a time, for it may be far.
    // Raises as Files::listFiles.
    [[nodiscard]] virtual StampedListing listStamped(std::string_view folder) const = 0;
};

} // namespace tarnwick
