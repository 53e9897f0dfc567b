#pragma once

#include "platform/desktop.hpp"

#include <deque>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace tarnwick {

// A desktop whose user answers from a script, and which remembers everything that it showed. What
// the script does not foresee fails the test: a question without an answer, a file dialog without a
// line for it. A box with OK alone needs no script.
class ScriptedDesktop : public Desktop {
  public:
    struct Opened {
        std::string document;
        std::string workingFolder;
        bool operator==(const Opened&) const = default;
    };

    [[nodiscard]] bool isSeen() const noexcept override { return seen; }
    MessageAnswer show(const Message& message) override;
    std::optional<std::string> chooseFile(const FileDialog& dialog) override;
    std::int32_t openDocument(std::string_view document, std::string_view workingFolder) override;

    // The script, used from the front.
    std::deque<MessageAnswer> answers;                  // to Yes/No questions
    std::deque<std::optional<std::string>> chosenFiles; // nothing: the dialog is cancelled
    std::int32_t openResult = 42;
    bool seen = true;
    // Called while a message is shown, before it is answered.
    std::function<void(const Message&)> whileShown;

    // What was shown, in this order.
    std::vector<Message> messages;
    std::vector<FileDialog> fileDialogs;
    std::vector<Opened> opened;
};

// For the tests' own reports.
std::ostream& operator<<(std::ostream& out, const Message& message);

} // namespace tarnwick
