#pragma once

#include "platform/desktop.hpp"

#include <cstdlib>

namespace tarnwick {

// Counts the messages; nothing else is asked of it.
class CountingDesktop : public Desktop {
  public:
    MessageAnswer show(const Message& /*message*/) override {
        ++shown;
        return MessageAnswer::Ok;
    }
    [[nodiscard]] bool isSeen() const noexcept override { return true; }
    std::string chooseFile(const FileDialog& /*dialog*/) override { std::abort(); }
    std::int32_t openDocument(std::string_view /*document*/,
                              std::string_view /*workingFolder*/) override {
        std::abort();
    }

    int shown = 0;
};

} // namespace tarnwick
