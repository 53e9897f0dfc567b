#include "record_reader.hpp"

#include "record_line.hpp"

#include <limits>
#include <utility>
#include <vector>

namespace demo {
namespace {

constexpr std::size_t longestLine = 1000;
constexpr std::size_t nothing = std::numeric_limits<std::size_t>::max();

class RecordReader {
  public:
    explicit RecordReader(Findings& findings) : findings_(findings) {}

    void take(std::size_t number, std::string_view whole) {
        if (whole.size() > longestLine) {
            findings_.warning(number, Message::LongLine, {std::to_string(longestLine)});
        }
        const auto line = lookAt(whole);
        if (line.isBlank) {
            ++blankLines_;
            return;
        }
        if (skipBelow_ != nothing && line.indentation > skipBelow_) {
            return;
        }
        skipBelow_ = nothing;
        while (!open_.empty() && open_.back().indentation >= line.indentation) {
            open_.pop_back();
        }
        const auto heading = headingOf(line);
        const auto* const rule = heading ? findElement(heading->name) : nullptr;
        const bool afterStrayText = std::exchange(inStrayText_, false);
        if (heading && rule != nullptr) {
            takeElement(number, line.indentation, *rule, heading->value);
        } else if (!open_.empty() && open_.back().element->rule->kind != Kind::Group) {
            takeText(line.text);
        } else if (heading) {
            findings_.error(number, Message::UnknownElement, {heading->name});
            skipBelow_ = line.indentation;
        } else {
            inStrayText_ = true;
            if (!afterStrayText) { // a run of such lines is told once
                findings_.error(number, Message::StrayText);
            }
        }
        blankLines_ = 0;
    }

    Record take() { return std::move(record_); }

  private:
    struct Open {
        std::size_t indentation;
        Element* element; // the last of its parent, which gets no other while this one is open
    };

    // The innermost open element; empty at the top level.
    [[nodiscard]] std::string_view openName() const {
        return open_.empty() ? std::string_view() : open_.back().element->rule->name;
    }

    void takeElement(std::size_t number, std::size_t indentation, const ElementRule& rule,
                     std::string_view value) {
        if (openName() != rule.parent) {
            tellMisplaced(number, rule);
        }
        while (!open_.empty() && openName() != rule.parent) {
            open_.pop_back();
        }
        auto& siblings = open_.empty() ? record_ : open_.back().element->children;
        siblings.push_back({.rule = &rule, .line = number, .text = {}, .children = {}});
        open_.push_back({indentation, &siblings.back()});
        if (!value.empty() && rule.kind == Kind::Group) {
            findings_.error(number, Message::GroupWithText, {rule.name});
        } else if (!value.empty()) {
            siblings.back().text.emplace_back(value);
        }
    }

    void tellMisplaced(std::size_t number, const ElementRule& rule) {
        if (rule.parent.empty()) {
            findings_.error(number, Message::BelongsAtTop, {rule.name});
        } else {
            findings_.error(number, Message::BelongsUnder, {rule.name, rule.parent});
        }
    }

    void takeText(std::string_view text) {
        auto& lines = open_.back().element->text;
        lines.insert(lines.end(), lines.empty() ? 0 : blankLines_, std::string());
        lines.emplace_back(text);
    }

    Findings& findings_;
    Record record_;
    std::vector<Open> open_;
    std::size_t blankLines_ = 0; // just before the line in hand
    std::size_t skipBelow_ = nothing;
    bool inStrayText_ = false;
};

} // namespace

Record readRecord(std::span<const std::string> lines, Findings& findings) {
    RecordReader reader(findings);
    std::size_t number = 0;
    for (const auto& line : lines) {
        reader.take(++number, line);
    }
    return reader.take();
}

} // namespace demo
