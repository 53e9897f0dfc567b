#include "reference/plain_escaping.hpp"

#include <cstdint>
#include <map>

namespace tarnwick::reference {

std::string withoutEntities(std::string_view markup) {
    static const std::map<std::string_view, char> entities{
        {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&#39;", '\''}};
    std::string text;
    while (!markup.empty()) {
        std::size_t length = 1;
        char character = markup.front();
        for (const auto& [entity, meant] : entities) {
            if (markup.starts_with(entity)) {
                length = entity.size();
                character = meant;
            }
        }
        text += character;
        markup.remove_prefix(length);
    }
    return text;
}

std::vector<std::string> cellsOf(std::string_view line) {
    std::vector<std::string> cells{""};
    bool isQuoted = false;
    for (std::size_t place = 0; place < line.size(); ++place) {
        if (isQuoted && line.substr(place, 2) == "\"\"") {
            cells.back() += '"';
            ++place;
        } else if (line[place] == '"') {
            isQuoted = !isQuoted;
        } else if (line[place] == ',' && !isQuoted) {
            cells.emplace_back();
        } else {
            cells.back() += line[place];
        }
    }
    return cells;
}

std::string withoutPercents(std::string_view part) {
    std::string bytes;
    for (std::size_t place = 0; place < part.size(); ++place) {
        if (part[place] == '%') {
            bytes +=
                static_cast<char>(std::stoi(std::string(part.substr(place + 1, 2)), nullptr, 16));
            place += 2;
        } else {
            bytes += part[place];
        }
    }
    return bytes;
}

bool isTextOfOneLine(std::string_view text) {
    const auto byteAt = [&](std::size_t place) -> std::uint32_t {
        return place < text.size() ? static_cast<unsigned char>(text[place]) : 0;
    };
    for (std::size_t place = 0; place < text.size();) {
        const std::uint32_t lead = byteAt(place);
        const std::size_t length = lead < 0x80   ? 1
                                   : lead < 0xC0 ? 0
                                   : lead < 0xE0 ? 2
                                   : lead < 0xF0 ? 3
                                   : lead < 0xF8 ? 4
                                                 : 0;
        constexpr std::uint32_t least[] = {0, 0x20, 0x80, 0x800, 0x10000};
        std::uint32_t character = length == 1 ? lead : lead & (0x7FU >> length);
        for (std::size_t next = 1; next < length; ++next) {
            if ((byteAt(place + next) & 0xC0U) != 0x80) {
                return false;
            }
            character = character << 6U | (byteAt(place + next) & 0x3FU);
        }
        const bool isSurrogate = character >= 0xD800 && character < 0xE000;
        const bool isNone = character == 0x7F || character == 0xFFFE || character == 0xFFFF;
        if (length == 0 || character < least[length] || character > 0x10FFFF || isSurrogate ||
            isNone) {
            return false;
        }
        place += length;
    }
    return true;
}

} // namespace tarnwick::reference
