#include "support/scripted_desktop.hpp"

#include "platform/run_time_error.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <utility>

namespace tarnwick {
namespace {

// The next line of the script; nothing, and a failure of the test, when it has none.
template <typename Line>
std::optional<Line> next(std::deque<Line>& script, std::string_view shown) {
    if (script.empty()) {
        ADD_FAILURE() << "the script has no answer to: " << shown;
        return std::nullopt;
    }
    auto line = std::move(script.front());
    script.pop_front();
    return line;
}

} // namespace

MessageAnswer ScriptedDesktop::show(const Message& message) {
    messages.push_back(message);
    if (whileShown) {
        whileShown(message);
    }
    if (message.buttons == MessageButtons::Ok) {
        return MessageAnswer::Ok;
    }
    return next(answers, message.text).value_or(MessageAnswer::No);
}

std::optional<std::string> ScriptedDesktop::chooseFile(const FileDialog& dialog) {
    fileDialogs.push_back(dialog);
    return next(chosenFiles, dialog.title).value_or(std::nullopt);
}

std::int32_t ScriptedDesktop::openDocument(std::string_view document,
                                           std::string_view workingFolder) {
    opened.push_back({std::string(document), std::string(workingFolder)});
    return openResult;
}

std::ostream& operator<<(std::ostream& out, const Message& message) {
    return out << '[' << message.title << "] "
               << (message.icon == MessageIcon::Exclamation ? "(!) " : "")
               << (message.buttons == MessageButtons::YesNo ? "(Yes/No) " : "") << message.text;
}

} // namespace tarnwick
