#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// The place of a shape in RunReport::shapes.
using ShapePlace = std::uint32_t;

// The messages of one record, in the order of the tools' reports. Their texts lie in one piece, one
// behind the other: of a hundred thousand records there may be a million, and a string for each
// would take as much memory again.
class KeptMessages {
  public:
    struct Message {
        ShapePlace shape = 0;
        std::uint32_t line = 0; // of its report, counted from 1
        std::string_view text;  // as long as the messages live
    };

    void add(const Message& message) {
        texts_.append(message.text);
        entries_.push_back({.shape = message.shape,
                            .line = message.line,
                            .textEnd = static_cast<std::uint32_t>(texts_.size())});
    }

    // When all are added: gives back the room that no message needs.
    void finish() {
        entries_.shrink_to_fit();
        texts_.shrink_to_fit();
    }

    [[nodiscard]] std::size_t size() const noexcept { return entries_.size(); }

    [[nodiscard]] Message operator[](std::size_t place) const {
        const std::size_t begin = place == 0 ? 0 : entries_[place - 1].textEnd;
        const Entry& entry = entries_[place];
        return {.shape = entry.shape,
                .line = entry.line,
                .text = std::string_view(texts_).substr(begin, entry.textEnd - begin)};
    }

    // Gives each the shape that `placeOf` says in place of its own.
    void moveShapes(const std::vector<ShapePlace>& placeOf) {
        for (Entry& entry : entries_) {
            entry.shape = placeOf[entry.shape];
        }
    }

    bool operator==(const KeptMessages&) const = default;

  private:
    struct Entry {
        ShapePlace shape = 0;
        std::uint32_t line = 0;
        std::uint32_t textEnd = 0; // in texts_; it begins where the one before it ends

        bool operator==(const Entry&) const = default;
    };

    std::vector<Entry> entries_;
    std::string texts_;
};

} // namespace tarnwick
