#include "runner/name_index.hpp"

#include <bit>
#include <functional>

namespace tarnwick {

NameIndex::NameIndex(const std::vector<StampedFile>& files)
    : files_(files), slots_(std::bit_ceil(files.size() + files.size() / 2 + 1)) {
    for (std::uint32_t place = 0; place < files.size(); ++place) {
        slots_[slotOf(files[place].name)] = place + 1;
    }
}

std::optional<Stamp> NameIndex::find(std::string_view name) const {
    const auto slot = slots_[slotOf(name)];
    return slot == 0 ? std::nullopt : std::optional(files_[slot - 1].stamp);
}

// That of the name, or the free one where it would stand.
std::size_t NameIndex::slotOf(std::string_view name) const {
    const std::size_t last = slots_.size() - 1;
    std::size_t slot = std::hash<std::string_view>()(name) & last;
    while (slots_[slot] != 0 && files_[slots_[slot] - 1].name != name) {
        slot = (slot + 1) & last;
    }
    return slot;
}

} // namespace tarnwick
