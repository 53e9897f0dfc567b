#include "ui/dialogs/frm_display_command_line_help.hpp"

#include <algorithm>

namespace tarnwick {
namespace {

constexpr int margin = 135;

} // namespace

frmDisplayCommandLineHelp::frmDisplayCommandLineHelp()
    : Form("frmDisplayCommandLineHelp", "Command Line Help on Tarnwick") {
    txtHelp.setFont({.name = "Courier New", .points = 9});
    txtHelp.setReadOnly(true);
    txtHelp.setText(commandLineHelp);
    Load = [this] { Form_Load(); };
    Resize = [this] { Form_Resize(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
}

void frmDisplayCommandLineHelp::Form_Resize() {
    if (windowState() == WindowState::Minimized) {
        return;
    }
    Bounds button = cmdOK.bounds();
    button.top = window().height - 855;
    button.left = (window().width - button.width) / 2;
    cmdOK.setBounds(button);
    txtHelp.setBounds({.left = margin,
                       .top = margin,
                       .width = std::max(0, window().width - 405),
                       .height = std::max(0, button.top - margin - margin)});
}

} // namespace tarnwick
