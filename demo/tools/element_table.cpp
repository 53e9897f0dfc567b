#include "element_table.hpp"

#include "platform/case_folding.hpp"

#include <algorithm>
#include <array>

namespace demo {
namespace {

constexpr bool required = true;
constexpr bool optional = false;
constexpr bool repeatable = true;
constexpr bool once = false;

constexpr ElementRule group(std::string_view name, std::string_view parent, bool isRequired) {
    return {.name = name, .parent = parent, .kind = Kind::Group, .required = isRequired};
}

constexpr auto table = std::to_array<ElementRule>({
    group("Identification", "", required),
    group("Citation", "Identification", required),
    {"Title", "Citation", Kind::Text, required, once, Message::AskWhat},
    {"Originator", "Citation", Kind::Text, required, repeatable, Message::AskWho},
    {"Publication_Date", "Citation", Kind::Date, required, once, Message::AskWhen},
    {"Edition", "Citation", Kind::Text, optional, once, Message::AskWhat},
    group("Description", "Identification", required),
    {"Abstract", "Description", Kind::Text, required, once, Message::AskWhat},
    {"Purpose", "Description", Kind::Text, optional, once, Message::AskWhy},
    group("Time_Period", "Identification", optional),
    {"Begin_Date", "Time_Period", Kind::Date, required, once, Message::AskWhen},
    {"End_Date", "Time_Period", Kind::Date, optional, once, Message::AskWhen},
    group("Extent", "Identification", required),
    {"West", "Extent", Kind::Longitude, required, once, Message::AskWhere},
    {"East", "Extent", Kind::Longitude, required, once, Message::AskWhere},
    {"South", "Extent", Kind::Latitude, required, once, Message::AskWhere},
    {"North", "Extent", Kind::Latitude, required, once, Message::AskWhere},
    group("Keywords", "Identification", optional),
    {"Theme", "Keywords", Kind::Text, required, repeatable, Message::AskSubject},
    {"Place", "Keywords", Kind::Text, optional, repeatable, Message::AskSubject},
    group("Quality", "", optional),
    {"Accuracy", "Quality", Kind::Text, optional, once, Message::AskQuality},
    {"Lineage", "Quality", Kind::Text, required, once, Message::AskQuality},
    group("Distribution", "", optional),
    {"Distributor", "Distribution", Kind::Text, required, once, Message::AskAccess},
    {"Format", "Distribution", Kind::Text, optional, repeatable, Message::AskAccess},
    {"Network_Address", "Distribution", Kind::Text, optional, once, Message::AskAccess},
    {"Fees", "Distribution", Kind::Text, optional, once, Message::AskAccess},
    group("Contact", "", optional),
    {"Organization", "Contact", Kind::Text, required, once, Message::AskContact},
    {"City", "Contact", Kind::Text, optional, once, Message::AskContact},
    {"Email", "Contact", Kind::Text, optional, once, Message::AskContact},
    group("Metadata", "", required),
    {"Metadata_Date", "Metadata", Kind::Date, required, once, Message::AskRecord},
    {"Metadata_Author", "Metadata", Kind::Text, optional, once, Message::AskRecord},
});

template <typename Matches>
const ElementRule* findWhere(Matches matches) {
    const auto* const found = std::ranges::find_if(table, matches, &ElementRule::name);
    return found == table.end() ? nullptr : found;
}

} // namespace

std::span<const ElementRule> elementTable() {
    return table;
}

const ElementRule* findElement(std::string_view name) {
    return findWhere([name](std::string_view known) { return known == name; });
}

const ElementRule* findElementLoosely(std::string_view name) {
    return findWhere([name](std::string_view known) { return sameNameLoosely(known, name); });
}

bool sameNameLoosely(std::string_view left, std::string_view right) {
    const auto fold = [](char character) {
        return character == ' ' || character == '-' ? '_' : tarnwick::upperCase(character);
    };
    return std::ranges::equal(left, right, {}, fold, fold);
}

std::size_t depthOf(const ElementRule& rule) {
    std::size_t depth = 0;
    for (const auto* parent = findElement(rule.parent); parent != nullptr;
         parent = findElement(parent->parent)) {
        ++depth;
    }
    return depth;
}

} // namespace demo
