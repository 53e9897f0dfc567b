#include "checks.hpp"

#include <charconv>
#include <chrono>
#include <cmath>
#include <optional>

namespace demo {
namespace {

template <typename Number>
std::optional<Number> numberFrom(std::string_view text) {
    Number number{};
    const auto* const end = text.data() + text.size();
    // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage): the end stands beside it
    const auto [last, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || last != end) {
        return std::nullopt;
    }
    return number;
}

// The number of an element that is there and holds one.
std::optional<double> coordinateOf(const Element* element) {
    const auto number = element == nullptr ? std::nullopt : numberFrom<double>(textOf(*element));
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<std::chrono::year_month_day> dateOf(const Element* element) {
    const auto text = element == nullptr ? std::string() : textOf(*element);
    const auto number = numberFrom<unsigned>(text);
    if (text.size() != 8 || !number || *number < 1'00'00) {
        return std::nullopt;
    }
    const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(*number / 1'00'00)),
                                           std::chrono::month(*number / 1'00 % 1'00),
                                           std::chrono::day(*number % 1'00));
    return date.ok() ? std::optional(date) : std::nullopt;
}

// A value as a message quotes it.
std::string shown(const Element& element) {
    constexpr std::size_t most = 40;
    const auto text = textOf(element);
    return text.size() <= most ? text : text.substr(0, most) + "...";
}

void checkCoordinate(const Element& element, int limit, Findings& findings) {
    const auto number = coordinateOf(&element);
    if (!number) {
        findings.error(element.line, Message::BadNumber, {element.rule->name, shown(element)});
    } else if (std::abs(*number) > limit) {
        findings.error(element.line, Message::OutOfRange,
                       {element.rule->name, std::to_string(-limit), std::to_string(limit)});
    }
}

void checkValue(const Element& element, Findings& findings) {
    if (element.rule->kind == Kind::Group) {
        return;
    }
    if (element.text.empty()) {
        findings.error(element.line, Message::NoText, {element.rule->name});
        return;
    }
    if (element.rule->kind == Kind::Date && !dateOf(&element)) {
        findings.error(element.line, Message::BadDate, {element.rule->name, shown(element)});
    } else if (element.rule->kind == Kind::Longitude) {
        checkCoordinate(element, 180, findings);
    } else if (element.rule->kind == Kind::Latitude) {
        checkCoordinate(element, 90, findings);
    }
}

// Whether each element of the group `parent` (null: the top level) is there as often as it should.
void checkNumberOf(const Record& elements, const Element* parent, Findings& findings) {
    const auto parentName = parent == nullptr ? std::string_view() : parent->rule->name;
    for (const auto& rule : elementTable()) {
        if (rule.parent != parentName) {
            continue;
        }
        const Element* first = nullptr;
        for (const auto& element : elements) {
            if (element.rule == &rule && first != nullptr && !rule.repeatable) {
                findings.error(element.line, Message::GivenTwice,
                               {rule.name, std::to_string(first->line)});
            }
            first = first == nullptr && element.rule == &rule ? &element : first;
        }
        if (first == nullptr && rule.required && parent == nullptr) {
            findings.error(0, Message::MissingAtTop, {rule.name});
        } else if (first == nullptr && rule.required) {
            findings.error(parent->line, Message::MissingUnder, {rule.name, parentName});
        }
    }
}

void checkElements(const Record& elements, const Element* parent, Findings& findings) {
    checkNumberOf(elements, parent, findings);
    for (const auto& element : elements) {
        checkValue(element, findings);
        if (element.rule->kind == Kind::Group) {
            checkElements(element.children, &element, findings);
        }
    }
}

// The first of two coordinates must be less than the second.
void checkOrder(const Record& record, std::string_view less, std::string_view greater,
                Findings& findings) {
    const auto* const element = findIn(record, less);
    const auto first = coordinateOf(element);
    const auto second = coordinateOf(findIn(record, greater));
    if (first && second && *first >= *second) {
        findings.error(element->line, Message::NotLess, {less, greater});
    }
}

} // namespace

void check(const Record& record, Findings& findings) {
    checkElements(record, nullptr, findings);
    checkOrder(record, "West", "East", findings);
    checkOrder(record, "South", "North", findings);
    const auto* const begin = findIn(record, "Begin_Date");
    const auto first = dateOf(begin);
    const auto last = dateOf(findIn(record, "End_Date"));
    if (first && last && *first > *last) {
        findings.error(begin->line, Message::NotEarlier, {"Begin_Date", "End_Date"});
    }
}

} // namespace demo
