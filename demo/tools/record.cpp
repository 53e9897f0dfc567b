#include "record.hpp"

#include "common/text.hpp"

namespace demo {
namespace {

constexpr std::size_t blanksPerLevel = 2;

void append(std::string& out, const Record& elements, std::size_t depth) {
    for (const auto& element : elements) {
        out.append(depth * blanksPerLevel, ' ').append(element.rule->name).append(1, ':');
        if (element.text.size() == 1) {
            out.append(1, ' ').append(element.text.front());
        }
        out += tarnwick::lineEnd;
        if (element.text.size() > 1) {
            for (const auto& line : element.text) {
                out.append(line.empty() ? 0 : (depth + 1) * blanksPerLevel, ' ').append(line);
                out += tarnwick::lineEnd;
            }
        }
        append(out, element.children, depth + 1);
    }
}

} // namespace

const Element* findIn(const Record& record, std::string_view name) {
    for (const auto& element : record) {
        if (element.rule->name == name) {
            return &element;
        }
        if (const auto* const found = findIn(element.children, name)) {
            return found;
        }
    }
    return nullptr;
}

std::string textOf(const Element& element) {
    std::string result;
    for (const auto& line : element.text) {
        const auto words = tarnwick::trim(line);
        result.append(result.empty() || words.empty() ? "" : " ").append(words);
    }
    return result;
}

std::string recordText(const Record& record) {
    std::string out;
    append(out, record, 0);
    return out;
}

} // namespace demo
