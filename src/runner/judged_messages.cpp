#include "runner/judged_messages.hpp"

#include <algorithm>

namespace tarnwick {

Judgement judgementOf(const MessagesLine& line, const MessagePatterns& patterns) {
    if (!line.known) {
        return Judgement::Unknown;
    }
    // What was cut may match where the whole message did not.
    if (line.missing && line.missing->judgedBy != 0 && line.missing->judgedBy == patterns.mark()) {
        return Judgement::Clean;
    }
    if (std::ranges::any_of(line.messages, [&](const ToolMessage& message) {
            return patterns.fails(message.text);
        })) {
        return Judgement::Fails;
    }
    return line.missing ? Judgement::PartlyKnown : Judgement::Clean;
}

JudgedMessages judgeKeptMessages(const Files& files, std::string_view path,
                                 const MessagePatterns& patterns) {
    JudgedMessages judged;
    readMessageLog(files, path, [&](const MessageLogLine& line) {
        if (const auto* const messages = std::get_if<MessagesLine>(&line)) {
            judged[messages->record] = judgementOf(*messages, patterns);
        }
    });
    return judged;
}

} // namespace tarnwick
