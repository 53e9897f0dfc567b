#pragma once

#include "platform/file_stamps.hpp"

namespace tarnwick {

// As the folders tell them, so that a file has the same stamp in a listing and by itself. A link to
// a file has that file's.
class Win32FileStamps : public FileStamps {
  public:
    [[nodiscard]] std::optional<Stamp> stampOf(std::string_view path) const override;
    [[nodiscard]] StampedListing listStamped(std::string_view folder) const override;
};

} // namespace tarnwick
