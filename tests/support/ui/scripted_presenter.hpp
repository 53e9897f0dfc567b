#pragma once

#include "ui/forms/form_presenter.hpp"

#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace tarnwick {

// "Shows" forms to a user who does what the test scripted: one function per form, in turn. Each
// must leave its form hidden or unloaded, and no form may be shown that no script waits for; a
// test that gets this wrong fails with the exception.
class ScriptedPresenter : public FormPresenter {
  public:
    using Script = std::function<void(Form& form)>;

    void thenUser(Script script) { scripts_.push_back(std::move(script)); }

    void showModal(Form& form) override {
        shown.push_back(form.name());
        if (scripts_.empty()) {
            throw std::logic_error("nobody expected " + form.name());
        }
        const Script script = std::move(scripts_.front());
        scripts_.pop_front();
        form.measured(windowSize, screenSize);
        form.show();
        script(form);
        if (form.visible()) {
            throw std::logic_error("the user left " + form.name() + " open");
        }
    }

    [[nodiscard]] bool done() const noexcept { return scripts_.empty(); }

    std::vector<std::string> shown; // the names of the forms, in order
    Size windowSize{.width = 6000, .height = 4000};
    Size screenSize{.width = 15360, .height = 11520}; // 1024 by 768 at 96 dpi

  private:
    std::deque<Script> scripts_;
};

} // namespace tarnwick
