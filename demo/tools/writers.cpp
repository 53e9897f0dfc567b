#include "writers.hpp"

#include "common/text.hpp"

#include <string_view>

namespace demo {
namespace {

using tarnwick::lineEnd;

// Control characters, and the places that code page 1252 leaves empty.
bool isNoCharacter(char character) {
    constexpr std::string_view others = "\x7F\x81\x8D\x8F\x90\x9D";
    return (character >= 0 && character < ' ') || others.find(character) != std::string_view::npos;
}

void appendTags(std::string& out, const Record& elements, std::size_t depth) {
    for (const auto& element : elements) {
        const std::string margin(depth * 2, ' ');
        out.append(margin).append(1, '<').append(element.rule->name).append(1, '>');
        if (element.rule->kind == Kind::Group) {
            out += lineEnd;
            appendTags(out, element.children, depth + 1);
            out += margin;
        }
        for (const auto& line : element.text) {
            out.append(&line == element.text.data() ? "" : lineEnd).append(escaped(line));
        }
        out.append("</").append(element.rule->name).append(1, '>').append(lineEnd);
    }
}

std::string tagged(std::string_view prologue, const Record& record) {
    std::string out(prologue);
    out.append(lineEnd).append("<record>").append(lineEnd);
    appendTags(out, record, 1);
    return out.append("</record>").append(lineEnd);
}

void appendFields(std::string& out, const Record& elements) {
    for (const auto& element : elements) {
        if (element.rule->kind == Kind::Group) {
            out.append("Group: ").append(element.rule->name).append(lineEnd);
            appendFields(out, element.children);
            out.append("End_Group").append(lineEnd);
            continue;
        }
        out.append(element.rule->name).append(1, ':');
        for (const auto& line : element.text) {
            out.append(&line == element.text.data() ? "" : lineEnd).append(1, ' ').append(line);
        }
        out += lineEnd;
    }
}

} // namespace

std::string textOutput(const Record& record, bool cleanUp) {
    auto whole = recordText(record);
    if (!cleanUp) {
        return whole;
    }
    std::string out;
    bool afterEmptyLine = false;
    std::string_view rest = whole;
    while (!rest.empty()) {
        const auto end = rest.find(lineEnd);
        const auto line = rest.substr(0, end);
        // One past the last character that is no blank; 0 where there is none.
        const auto length = line.find_last_not_of(' ') + 1;
        if (length > 0 || !afterEmptyLine) {
            out.append(line.substr(0, length)).append(lineEnd);
        }
        afterEmptyLine = length == 0;
        rest.remove_prefix(end + lineEnd.size());
    }
    return out;
}

std::string xmlOutput(const Record& record) {
    return tagged(R"(<?xml version="1.0" encoding="windows-1252"?>)", record);
}

std::string sgmlOutput(const Record& record) {
    return tagged("<!doctype record>", record);
}

std::string difOutput(const Record& record) {
    std::string out;
    appendFields(out, record);
    return out;
}

std::string escaped(std::string_view text) {
    std::string result;
    for (const char character : text) {
        switch (character) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        default:
            result += isNoCharacter(character) ? '?' : character;
        }
    }
    return result;
}

} // namespace demo
