#include "common/unseen_desktop.hpp"

#include "common/text.hpp"

namespace tarnwick {
namespace {

constexpr std::int32_t accessDenied = 5; // as the system would say

std::string cancelled(std::string_view title) {
    return "The dialog " + quoted(title) + " counts as cancelled: nobody can see it.";
}

} // namespace

MessageAnswer defaultAnswer(MessageButtons buttons) noexcept {
    return buttons == MessageButtons::YesNo ? MessageAnswer::Yes : MessageAnswer::Ok;
}

MessageAnswer UnseenDesktop::show(const Message& message) {
    const MessageAnswer answer = defaultAnswer(message.buttons);
    std::string text = message.text;
    if (answer == MessageAnswer::Yes) {
        text.append(lineEnd).append("This counts as answered with \"Yes\": nobody can see it.");
    }
    log_.warn(text);
    return answer;
}

std::optional<std::string> UnseenDesktop::chooseFile(const FileDialog& dialog) {
    log_.warn(cancelled(dialog.title));
    return std::nullopt;
}

std::int32_t UnseenDesktop::openDocument(std::string_view document,
                                         std::string_view /*workingFolder*/) {
    log_.warn(quoted(document) + " is not opened: nobody can see it.");
    return accessDenied;
}

} // namespace tarnwick
