#pragma once

#include "platform/file_stamps.hpp"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tarnwick {

// Finds the files of a listing by their names, with four bytes or so for each. Refers to the
// listing, which must outlive it.
class NameIndex {
  public:
    explicit NameIndex(const std::vector<StampedFile>& files);

    // Nothing where no file is spelled so.
    [[nodiscard]] std::optional<Stamp> find(std::string_view name) const;

  private:
    [[nodiscard]] std::size_t slotOf(std::string_view name) const;

    const std::vector<StampedFile>& files_;
    std::vector<std::uint32_t> slots_; // 1 + the place in files_; 0: free
};

} // namespace tarnwick
