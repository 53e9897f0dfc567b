#pragma once

#include "platform/desktop.hpp"

#include <cstdlib>
#include <iostream>

namespace tarnwick {

// Nothing goes wrong in a benchmark; if something does, it must not pass as a good time.
class NoDesktop : public Desktop {
  public:
    [[nodiscard]] bool isSeen() const noexcept override { return true; }
    MessageAnswer show(const Message& message) override {
        std::cerr << message.text << '\n';
        std::abort();
    }
    std::string chooseFile(const FileDialog& /*dialog*/) override { std::abort(); }
    std::int32_t openDocument(std::string_view /*document*/,
                              std::string_view /*workingFolder*/) override {
        std::abort();
    }
};

} // namespace tarnwick
