#pragma once

#include "common/trap.hpp"
#include "platform/desktop.hpp"
#include "ui/forms/control.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace tarnwick {

// Lets the procedures of a form answer events. Every procedure traps its own errors, and reports
// them under the form's name and its declaration line, which follows from the control's name:
// "Private Sub cmdOK_Click()". Form and desktop must outlive the events.
template <typename FormKind>
class Connector {
  public:
    using Procedure = void (FormKind::*)();

    Connector(Desktop& desktop, FormKind& form) noexcept : desktop_(desktop), form_(form) {}

    void load(Procedure body) const { (*this)(form_.Load, "Private Sub Form_Load()", body); }
    void click(auto& control, Procedure body) const {
        connect(control, "Click", control.Click, body);
    }
    void doubleClick(auto& control, Procedure body) const {
        connect(control, "DblClick", control.DblClick, body);
    }
    void change(auto& control, Procedure body) const {
        connect(control, "Change", control.Change, body);
    }
    void gotFocus(Control& control, Procedure body) const {
        connect(control, "GotFocus", control.GotFocus, body);
    }
    void lostFocus(Control& control, Procedure body) const {
        connect(control, "LostFocus", control.LostFocus, body);
    }

    // Under another declaration line.
    template <typename... Arguments>
    void operator()(std::function<void(Arguments...)>& event, std::string procedure,
                    void (FormKind::*body)(Arguments...)) const {
        event = [&desktop = desktop_, &form = form_, procedure = std::move(procedure),
                 body](Arguments... arguments) {
            trap(desktop, form.name(), procedure, [&] { (form.*body)(arguments...); });
        };
    }

  private:
    void connect(const auto& control, std::string_view eventName, std::function<void()>& event,
                 Procedure body) const {
        (*this)(event, ("Private Sub " + control.name() + "_").append(eventName) + "()", body);
    }

    Desktop& desktop_;
    FormKind& form_;
};

} // namespace tarnwick
