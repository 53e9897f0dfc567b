#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace tarnwick {

// The input of a target as lines of a text file, one for each thing that it wants, so that people
// can read and write a corpus.
class Fields {
  public:
    explicit Fields(std::string_view bytes) : rest_(bytes) {}

    // The next line, without its LF; empty behind the last one.
    [[nodiscard]] std::string next() {
        const auto end = std::min(rest_.find('\n'), rest_.size());
        const std::string field(rest_.substr(0, end));
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        return field;
    }

    // All that was not asked for yet.
    [[nodiscard]] std::string_view rest() const noexcept { return rest_; }

  private:
    std::string_view rest_;
};

} // namespace tarnwick
