#pragma once

#include "platform/desktop.hpp"
#include "platform/event_log.hpp"

namespace tarnwick {

// What a box with these buttons answers by itself: the button that Enter would press.
[[nodiscard]] MessageAnswer defaultAnswer(MessageButtons buttons) noexcept;

// The desktop of a program whose windows nobody can see, as in a task that runs whether anybody is
// logged on or not: whatever it showed would wait for ever. What it is asked to show goes to the
// event log; a message is answered by its default button, a dialog is cancelled, and no document is
// opened. Refers to the log, which must outlive it.
class UnseenDesktop final : public Desktop {
  public:
    explicit UnseenDesktop(EventLog& log) noexcept : log_(log) {}

    [[nodiscard]] bool isSeen() const noexcept override { return false; }
    MessageAnswer show(const Message& message) override;
    std::optional<std::string> chooseFile(const FileDialog& dialog) override;
    std::int32_t openDocument(std::string_view document, std::string_view workingFolder) override;

  private:
    EventLog& log_;
};

} // namespace tarnwick
