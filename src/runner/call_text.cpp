#include "runner/call_text.hpp"

#include "platform/code_page.hpp"
#include "runner/hash.hpp"

#include <algorithm>

namespace tarnwick {
namespace {

bool needsNoQuotes(std::string_view word) {
    constexpr std::string_view safe = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                      "0123456789_-./,:@+=";
    return !word.empty() && word.find_first_not_of(safe) == std::string_view::npos;
}

std::string shellWord(std::string_view word) {
    if (needsNoQuotes(word)) {
        return std::string(word);
    }
    std::string quoted = "'";
    for (const char character : word) {
        quoted += character == '\'' ? R"('\'')" : std::string(1, character);
    }
    return quoted + "'";
}

// What is no character becomes the one that stands for such.
std::string jsonText(std::string_view text) {
    const CodePage utf8(CodePage::utf8);
    std::string quoted = "\"";
    while (!text.empty()) {
        const auto bytes = text.substr(0, utf8.lengthOfFirst(text));
        text.remove_prefix(bytes.size());
        if (bytes == "\"" || bytes == "\\") {
            quoted.append("\\").append(bytes);
        } else if (static_cast<unsigned char>(bytes.front()) < 0x20) {
            quoted.append("\\u00").append(
                hexadecimal(static_cast<unsigned char>(bytes.front())).substr(14));
        } else {
            quoted += utf8.isCharacter(bytes) ? bytes : "\xEF\xBF\xBD";
        }
    }
    return quoted + "\"";
}

std::string jsonCall(const ToolCall& call) {
    std::string text = "{\"program\":" + jsonText(call.program) + ",\"arguments\":[";
    for (const std::string& argument : call.arguments) {
        text.append(text.ends_with('[') ? "" : ",").append(jsonText(argument));
    }
    return text + "],\"folder\":" + jsonText(call.folder) + "}";
}

} // namespace

std::string shellLine(const ToolCall& call) {
    std::string line = shellWord(call.program);
    for (const std::string& argument : call.arguments) {
        line.append(" ").append(shellWord(argument));
    }
    return line;
}

std::string shellLine(const std::vector<ToolCall>& calls) {
    std::string line;
    for (const ToolCall& call : calls) {
        line.append(line.empty() ? "cd " + shellWord(call.folder) + " && " : " && ")
            .append(shellLine(call));
    }
    return line;
}

std::string jsonLine(std::string_view record, const std::vector<ToolCall>& calls) {
    std::string line = "{\"record\":" + jsonText(record) + ",\"calls\":[";
    for (const ToolCall& call : calls) {
        line.append(line.ends_with('[') ? "" : ",").append(jsonCall(call));
    }
    return line + "]}";
}

} // namespace tarnwick
