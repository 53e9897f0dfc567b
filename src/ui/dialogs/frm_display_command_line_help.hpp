#pragma once

#include "ui/forms/button.hpp"
#include "ui/forms/form.hpp"
#include "ui/forms/text_box.hpp"

#include <string_view>

namespace tarnwick {

// What the help window says. Its columns line up in a fixed-width font.
inline constexpr std::string_view commandLineHelp =
    "Syntax: Tarnwick.exe -I INI_file [-F input_folder] [-e input_file_extensions] [-n] \r\n"
    "\r\n"
    "Options:\r\n"
    "  -I  INI_file                Required, INI file\r\n"
    "\r\n"
    "  -F  input_folder            Optional, location of input files\r\n"
    "\r\n"
    "  -e  input_file_extensions   Optional, input file extensions (Example: *.sgm;*.txt)\r\n"
    "\r\n"
    "  -n                          Optional, notify user when bat file has completed \r\n";

// Explains the command line.
class frmDisplayCommandLineHelp final : public Form {
  public:
    frmDisplayCommandLineHelp();

    // The button comes first: it has the focus, so that no text is selected at first.
    Button cmdOK{*this, "cmdOK", "OK", Button::Role::DefaultAndCancel};
    TextBox txtHelp{*this, "txtHelp"};

  private:
    void Form_Load() { centreOnScreen(); }
    void Form_Resize();
    void cmdOK_Click() { unload(); }
};

} // namespace tarnwick
