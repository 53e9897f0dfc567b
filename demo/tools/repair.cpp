#include "repair.hpp"

#include "record_line.hpp"

#include <algorithm>
#include <utility>

namespace demo {
namespace {

constexpr std::size_t blanksPerLevel = 2;

class Repairer {
  public:
    Repairer(const Aliases& aliases, Language language) : aliases_(aliases), language_(language) {}

    void take(std::size_t number, const std::string& whole) {
        const auto line = lookAt(whole);
        if (line.isBlank) {
            ++blankLines_;
            return;
        }
        const auto heading = headingOf(line);
        const auto* const rule = heading ? ruleOf(heading->name) : nullptr;
        const bool looksUnknown =
            heading && heading->name.find(' ') == std::string_view::npos && rule == nullptr;
        if (heading && rule != nullptr) {
            takeElement(number, line.indentation, *rule, *heading);
        } else if (takesText_ && (!looksUnknown || line.indentation > indentation_)) {
            takeText(line.text);
        } else {
            leaveOver(number, whole);
            takesText_ = false;
        }
        blankLines_ = 0;
    }

    Repaired finish() {
        result_.elements = elements_.size();
        result_.record = recordUnder("");
        std::ranges::stable_sort(repairs_, {}, &Repair::line);
        for (auto& repair : repairs_) {
            result_.repairs.push_back(std::move(repair.sentence));
        }
        return std::move(result_);
    }

  private:
    struct Repair {
        std::size_t line;
        std::string sentence;
    };

    [[nodiscard]] const ElementRule* ruleOf(std::string_view name) const {
        const auto* const rule = findElementLoosely(name);
        return rule == nullptr ? aliases_.find(name) : rule;
    }

    void takeElement(std::size_t number, std::size_t indentation, const ElementRule& rule,
                     const Heading& heading) {
        const auto usual = depthOf(rule) * blanksPerLevel;
        if (indentation != usual) {
            tell(number, say(language_, Message::RepairIndentation,
                             {std::to_string(number), rule.name, std::to_string(usual),
                              std::to_string(indentation)}));
        }
        if (heading.name != rule.name) {
            const bool isName = sameNameLoosely(heading.name, rule.name);
            tell(number, say(language_, isName ? Message::RepairName : Message::RepairAlias,
                             {std::to_string(number), heading.name, rule.name}));
        }
        indentation_ = indentation;
        takesText_ = rule.kind != Kind::Group;
        elements_.push_back({.rule = &rule, .line = number, .text = {}, .children = {}});
        if (takesText_ && !heading.value.empty()) {
            elements_.back().text.emplace_back(heading.value);
        } else if (!heading.value.empty()) {
            leaveOver(number, std::string(heading.value));
        }
    }

    void takeText(std::string_view text) {
        auto& lines = elements_.back().text;
        lines.insert(lines.end(), lines.empty() ? 0 : blankLines_, std::string());
        lines.emplace_back(text);
    }

    void leaveOver(std::size_t number, const std::string& text) {
        tell(number, say(language_, Message::RepairLeftOver, {std::to_string(number)}));
        result_.leftovers.push_back({number, text});
    }

    void tell(std::size_t number, std::string sentence) {
        repairs_.push_back({number, std::move(sentence)});
    }

    // The elements of one group out of all that were read, with the groups that have to be
    // supplied for what stands in them.
    Record recordUnder(std::string_view parent) {
        Record record;
        for (const auto& rule : elementTable()) {
            if (rule.parent != parent) {
                continue;
            }
            if (rule.kind == Kind::Group) {
                takeGroup(record, rule);
                continue;
            }
            for (auto& element : elements_) {
                if (element.rule == &rule) {
                    record.push_back(std::move(element));
                }
            }
        }
        return record;
    }

    void takeGroup(Record& record, const ElementRule& rule) {
        const auto read = std::ranges::find(elements_, &rule, &Element::rule);
        auto children = recordUnder(rule.name);
        if (read == elements_.end() && children.empty()) {
            return;
        }
        const auto line = read == elements_.end() ? children.front().line : read->line;
        if (read == elements_.end()) {
            tell(line, say(language_, Message::RepairParent,
                           {std::to_string(line), rule.name, children.front().rule->name}));
        }
        record.push_back(
            {.rule = &rule, .line = line, .text = {}, .children = std::move(children)});
    }

    const Aliases& aliases_;
    Language language_;
    Repaired result_;
    std::vector<Element> elements_; // without children, in the order of the file
    std::vector<Repair> repairs_;
    std::size_t blankLines_ = 0;  // just before the line in hand
    std::size_t indentation_ = 0; // of the last element
    bool takesText_ = false;      // the last element does
};

} // namespace

Repaired repair(std::span<const std::string> lines, const Aliases& aliases, Language language) {
    Repairer repairer(aliases, language);
    std::size_t number = 0;
    for (const auto& line : lines) {
        repairer.take(++number, line);
    }
    return repairer.finish();
}

} // namespace demo
