#pragma once

#include "ui/forms/button.hpp"
#include "ui/forms/form.hpp"
#include "ui/forms/form_presenter.hpp"
#include "ui/forms/text_box.hpp"

#include <functional>
#include <string>
#include <string_view>

namespace tarnwick {

// Asks for one line. The caller shows it modally and reads the result.
class frmInputBox final : public Form {
  public:
    // In the prompt a "&" is a character like any other.
    frmInputBox(std::string_view prompt, std::string_view title);

    // The line typed; empty when cancelled.
    [[nodiscard]] const std::string& result() const noexcept { return result_; }

    Label lblPrompt;
    TextBox txtLine{*this, "txtLine"};
    Button cmdOK{*this, "cmdOK", "OK", Button::Role::Default};
    Button cmdCancel{*this, "cmdCancel", "Cancel", Button::Role::Cancel};

  private:
    void cmdOK_Click();

    std::string result_;
};

// How a form asks for a line: with a prompt and a title. Empty when the user cancels.
using AskForText = std::function<std::string(std::string_view prompt, std::string_view title)>;

// Asks by a frmInputBox. The presenter must outlive what it returns.
[[nodiscard]] AskForText askingIn(FormPresenter& presenter);

} // namespace tarnwick
