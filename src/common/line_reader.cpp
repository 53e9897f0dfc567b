#include "common/line_reader.hpp"

#include <algorithm>
#include <cstddef>

namespace tarnwick {
namespace {
constexpr std::size_t blockSize = std::size_t{64} * 1024;
}

LineReader::LineReader(InputFile& file, LineEnds lineEnds, std::size_t longest)
    : file_(file), lineEnds_(lineEnds), longest_(longest), block_(blockSize) {}

std::optional<std::string_view> LineReader::next() {
    line_.clear();
    bool begun = false;
    while (!unread_.empty() || fill()) {
        if (skipLineFeed_) {
            skipLineFeed_ = false;
            if (unread_.front() == '\n') {
                unread_.remove_prefix(1);
                continue;
            }
        }
        begun = true;
        const auto* const end =
            std::ranges::find_if(unread_, [this](char c) { return endsLine(c); });
        const auto length = static_cast<std::size_t>(end - unread_.begin());
        line_.append(unread_.substr(0, std::min(length, longest_ - line_.size())));
        if (end != unread_.end()) {
            skipLineFeed_ = *end == '\r';
            unread_.remove_prefix(length + 1);
            return line_;
        }
        unread_ = {};
    }
    return begun ? std::optional<std::string_view>(line_) : std::nullopt;
}

bool LineReader::fill() {
    unread_ = std::string_view(block_.data(), file_.read(block_));
    return !unread_.empty();
}

bool LineReader::endsLine(char character) const noexcept {
    return character == '\r' || (character == '\n' && lineEnds_ == LineEnds::Any);
}

} // namespace tarnwick
