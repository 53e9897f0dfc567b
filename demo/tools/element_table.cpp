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
    return {.name = name,
            .parent = parent,
            .kind = Kind::Group,
            .required = isRequired,
            .repeatable = once,
            .question = std::nullopt};
}

constexpr ElementRule element(std::string_view name, std::string_view parent, Kind kind,
                              bool isRequired, bool isRepeatable, Message question) {
    return {.name = name,
            .parent = parent,
            .kind = kind,
            .required = isRequired,
            .repeatable = isRepeatable,
            .question = question};
}

constexpr auto table = std::to_array<ElementRule>({
    group("Identification", "", required),
    group("Citation", "Identification", required),
    element("Title", "Citation", Kind::Text, required, once, Message::AskWhat),
    element("Originator", "Citation", Kind::Text, required, repeatable, Message::AskWho),
    element("Publication_Date", "Citation", Kind::Date, required, once, Message::AskWhen),
    element("Edition", "Citation", Kind::Text, optional, once, Message::AskWhat),
    group("Description", "Identification", required),
    element("Abstract", "Description", Kind::Text, required, once, Message::AskWhat),
    element("Purpose", "Description", Kind::Text, optional, once, Message::AskWhy),
    group("Time_Period", "Identification", optional),
    element("Begin_Date", "Time_Period", Kind::Date, required, once, Message::AskWhen),
    element("End_Date", "Time_Period", Kind::Date, optional, once, Message::AskWhen),
    group("Extent", "Identification", required),
    element("West", "Extent", Kind::Longitude, required, once, Message::AskWhere),
    element("East", "Extent", Kind::Longitude, required, once, Message::AskWhere),
    element("South", "Extent", Kind::Latitude, required, once, Message::AskWhere),
    element("North", "Extent", Kind::Latitude, required, once, Message::AskWhere),
    group("Keywords", "Identification", optional),
    element("Theme", "Keywords", Kind::Text, required, repeatable, Message::AskSubject),
    element("Place", "Keywords", Kind::Text, optional, repeatable, Message::AskSubject),
    group("Quality", "", optional),
    element("Accuracy", "Quality", Kind::Text, optional, once, Message::AskQuality),
    element("Lineage", "Quality", Kind::Text, required, once, Message::AskQuality),
    group("Distribution", "", optional),
    element("Distributor", "Distribution", Kind::Text, required, once, Message::AskAccess),
    element("Format", "Distribution", Kind::Text, optional, repeatable, Message::AskAccess),
    element("Network_Address", "Distribution", Kind::Text, optional, once, Message::AskAccess),
    element("Fees", "Distribution", Kind::Text, optional, once, Message::AskAccess),
    group("Contact", "", optional),
    element("Organization", "Contact", Kind::Text, required, once, Message::AskContact),
    element("City", "Contact", Kind::Text, optional, once, Message::AskContact),
    element("Email", "Contact", Kind::Text, optional, once, Message::AskContact),
    group("Metadata", "", required),
    element("Metadata_Date", "Metadata", Kind::Date, required, once, Message::AskRecord),
    element("Metadata_Author", "Metadata", Kind::Text, optional, once, Message::AskRecord),
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
        return character == ' ' || character == '-'
                   ? '_'
                   : tarnwick::systemCodePage().upperCase(character);
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
