#pragma once

#include "platform/win32/win32_pending_events.hpp"
#include "ui/forms/form.hpp"

namespace tarnwick {

// The program's one window that is no dialog. Make it before the pending events, which must show it
// every message first: so tabs and access keys work while a handler lets events run.
class Win32MainWindow final : public MessageFilter {
  public:
    // Loads the form, shows it unless its Load has ended it, and runs the program's events until it
    // is hidden or unloaded. The window is as large as the form says, frame, title and menu
    // included, at every resolution. An error that no handler of the form has trapped ends it and
    // is raised here; so is 51 where the dialog resource is missing or does not fit the form.
    void run(Form& form);

    bool handles(MSG& message) override;

  private:
    HWND window_ = nullptr; // while it runs
};

} // namespace tarnwick
