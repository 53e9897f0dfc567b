#pragma once

#include "platform/desktop.hpp"

namespace tarnwick {

// The message boxes and common dialogs of Windows, each owned by the window that asks (see
// asking_window.hpp).
class Win32Desktop : public Desktop {
  public:
    [[nodiscard]] bool isSeen() const noexcept override;
    MessageAnswer show(const Message& message) override;
    std::optional<std::string> chooseFile(const FileDialog& dialog) override;
    std::int32_t openDocument(std::string_view document, std::string_view workingFolder) override;
};

} // namespace tarnwick
