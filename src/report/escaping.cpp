#include "report/escaping.hpp"

#include "common/text.hpp"
#include "runner/visible_text.hpp"

#include <algorithm>

namespace tarnwick {
namespace {

bool isPlain(std::string_view text) noexcept {
    return std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
}

bool standsInLinks(char c) noexcept {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-._~").contains(c);
}

// The signs with which a formula begins, also those of full width, which some spreadsheets take for
// the same.
bool beginsFormula(std::string_view text) noexcept {
    constexpr std::string_view wide[] = {"\xEF\xBC\x9D", "\xEF\xBC\x8B", "\xEF\xBC\x8D",
                                         "\xEF\xBC\xA0"};
    return (!text.empty() && std::string_view("=+-@\t\r\n").contains(text.front())) ||
           std::ranges::any_of(wide, [&](std::string_view sign) { return text.starts_with(sign); });
}

// A blank in front keeps no spreadsheet from seeing a formula behind it, nor does a quotation mark.
bool seemsFormula(std::string_view text) noexcept {
    return beginsFormula(text.substr(std::min(text.find_first_not_of(" \""), text.size())));
}

// Where ";" or "," is what lies between cells for a spreadsheet, what stands behind one begins a
// cell.
std::string withoutFormulas(std::string_view text) {
    std::string safe;
    while (!text.empty()) {
        const auto end = std::min(text.find_first_of(";,"), text.size() - 1) + 1;
        safe += text.substr(0, end);
        text.remove_prefix(end);
        if (safe.find_last_of(";,") == safe.size() - 1 && seemsFormula(text)) {
            safe += '\'';
        }
    }
    return safe;
}

} // namespace

const CodePage& utf8Page() noexcept {
    static const CodePage page(CodePage::utf8);
    return page;
}

std::string shownText(std::string_view text) {
    return isPlain(text) ? std::string(text) : visibleText(text, utf8Page());
}

std::string markupText(std::string_view text) {
    std::string written;
    for (const char character : shownText(text)) {
        switch (character) {
        case '&':
            written += "&amp;";
            break;
        case '<':
            written += "&lt;";
            break;
        case '>':
            written += "&gt;";
            break;
        case '"':
            written += "&quot;";
            break;
        case '\'':
            written += "&#39;";
            break;
        default:
            written += character;
        }
    }
    return written;
}

std::string csvCell(std::string_view text) {
    const std::string cell = (seemsFormula(text) ? "'" : "") + withoutFormulas(shownText(text));
    const bool needsQuotes = cell.find_first_of(",;\"") != std::string::npos ||
                             cell.starts_with(' ') || cell.ends_with(' ');
    return needsQuotes ? quoted(withDoubled(cell, '"')) : cell;
}

std::string linkPart(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string part;
    for (const char byte : bytes) {
        if (standsInLinks(byte)) {
            part += byte;
        } else {
            const auto number = static_cast<unsigned char>(byte);
            part.append({'%', digits[number >> 4U], digits[number & 0xFU]});
        }
    }
    return part;
}

std::string folderLink(std::string_view folder) {
    std::string link;
    for (const char character : folder) { // a browser takes the one for the other
        link += character == '\\' ? "%5C" : std::string(1, character);
    }
    if (link.starts_with("//")) { // a share; on a page from a server it would be another server
        link.insert(0, "file:");
    }
    const auto first = link.substr(0, link.find_first_of("/?#"));
    const bool hasScheme = first.contains(':') && !link.starts_with("file://");
    const bool isTrimmed = !link.empty() && static_cast<unsigned char>(link.front()) <= ' ';
    return (hasScheme || isTrimmed ? "./" : "") + markupText(link);
}

} // namespace tarnwick
