#pragma once

#include "common/trap.hpp"
#include "platform/desktop.hpp"

#include <functional>
#include <string_view>

namespace tarnwick {

// Lets the procedures of a form answer events. Every procedure traps its own errors, and reports
// them under the form's name and its declaration line. Form and desktop must outlive the events.
template <typename FormKind>
class Connector {
  public:
    Connector(Desktop& desktop, FormKind& form) noexcept : desktop_(desktop), form_(form) {}

    // `procedure`, the declaration line, is not copied.
    template <typename... Arguments>
    void operator()(std::function<void(Arguments...)>& event, std::string_view procedure,
                    void (FormKind::*body)(Arguments...)) const {
        event = [&desktop = desktop_, &form = form_, procedure, body](Arguments... arguments) {
            trap(desktop, form.name(), procedure, [&] { (form.*body)(arguments...); });
        };
    }

  private:
    Desktop& desktop_;
    FormKind& form_;
};

} // namespace tarnwick
