#include "runner/judged_messages.hpp"

#include "runner/message_log.hpp"

#include <algorithm>

namespace tarnwick {

JudgedMessages judgeKeptMessages(const Files& files, std::string_view path,
                                 const MessagePatterns& patterns) {
    JudgedMessages judged;
    readMessageLog(files, path, [&](const MessageLogLine& line) {
        const auto* const messages = std::get_if<MessagesLine>(&line);
        if (messages == nullptr) {
            return;
        }
        if (messages->known) {
            judged[messages->record] =
                std::ranges::any_of(messages->messages, [&](const ToolMessage& message) {
                    return patterns.fails(message.text);
                });
        } else {
            judged.erase(messages->record);
        }
    });
    return judged;
}

} // namespace tarnwick
