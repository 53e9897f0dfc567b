#include "runner/messages.hpp"

#include "common/text.hpp"
#include "runner/visible_text.hpp"

#include <algorithm>
#include <array>
#include <limits>
#include <span>
#include <string_view>
#include <utility>

namespace tarnwick {
namespace {

constexpr bool isBlank(char character) noexcept {
    return character == ' ' || character == '\t' || character == '\v' || character == '\f';
}

// So much of a line is looked at by patterns.
constexpr std::size_t longestJudged = 64UZ * 1024;

// Gathers a line of any length in little memory.
class BoundedLine {
  public:
    // `most` bytes and one more are kept.
    explicit BoundedLine(std::size_t most) : most_(most) {}

    void add(char character) {
        if (text_.size() <= most_) {
            if (!text_.empty() || !isBlank(character)) {
                text_ += character;
            }
        } else {
            cut_ = cut_ || !isBlank(character);
        }
    }

    // Its text, without the blanks around it; the next one begins.
    std::string take() {
        std::string text = std::exchange(text_, {});
        if (!std::exchange(cut_, false)) {
            while (!text.empty() && isBlank(text.back())) {
                text.pop_back();
            }
        }
        return text;
    }

  private:
    std::size_t most_;
    std::string text_;
    bool cut_ = false; // something that is not blank stands behind it
};

class MessageReader {
  public:
    MessageReader(const MessagePatterns& patterns, RecordMessages& messages,
                  const ToolText& toolText)
        : patterns_(patterns),
          messages_(messages),
          toolText_(toolText),
          // A text of another code page may become shorter: what is cut is known afterwards.
          line_(patterns.failOn.empty() && !toolText ? longestMessage : longestJudged) {}

    void read(InputFile& file, std::uint64_t most) {
        std::array<char, 64UZ * 1024> block{};
        while (most > 0) {
            const auto room = static_cast<std::size_t>(std::min<std::uint64_t>(most, block.size()));
            const std::size_t count = file.read(std::span(block).first(room));
            if (count == 0) {
                break;
            }
            most -= count;
            for (const char character : std::string_view(block.data(), count)) {
                take(character);
            }
        }
        endLine();
    }

  private:
    void take(char character) {
        const bool isSecondHalf = character == '\n' && afterReturn_;
        afterReturn_ = character == '\r';
        if (isSecondHalf) {
            return;
        }
        if (character == '\r' || character == '\n') {
            endLine();
        } else {
            line_.add(character);
        }
    }

    void endLine() {
        number_ += number_ < std::numeric_limits<std::uint32_t>::max() ? 1U : 0U;
        std::string text = line_.take();
        if (text.empty()) {
            return;
        }
        if (toolText_) {
            text = toolText_(text);
        }
        const bool fails = messages_.failing.empty() && patterns_.fails(text);
        const bool isIgnored = patterns_.isIgnored(text);
        const bool isCut = text.size() > longestMessage;
        text = shortened(text, longestMessage);
        if (fails) {
            messages_.failing = text;
        }
        std::size_t& kept = isIgnored ? keptIgnored_ : kept_;
        if (kept < mostMessages) {
            ++kept;
            messages_.isPart = messages_.isPart || isCut;
            messages_.kept.push_back({.line = number_, .text = std::move(text)});
        } else {
            messages_.isPart = true;
            messages_.leftOut += isIgnored ? 0 : 1;
        }
    }

    const MessagePatterns& patterns_;
    RecordMessages& messages_;
    const ToolText& toolText_;
    BoundedLine line_;
    bool afterReturn_ = false;
    std::uint32_t number_ = 0;
    std::size_t kept_ = 0;
    std::size_t keptIgnored_ = 0; // these take nobody's place, and are there for other patterns
};

} // namespace

bool holdsMessages(const ProductKind& kind) noexcept {
    return kind.label == (kind.tool == Tool::MP ? "error" : "leftovers");
}

bool messagesAreKnown(const Products& products) {
    return std::ranges::any_of(products.kinds(), holdsMessages);
}

std::string messageFailure(std::string_view message) {
    return "the tools say " + quoted(message);
}

void readMessages(InputFile& file, std::uint64_t size, const MessagePatterns& patterns,
                  RecordMessages& messages, const ToolText& toolText) {
    MessageReader(patterns, messages, toolText).read(file, size);
}

} // namespace tarnwick
