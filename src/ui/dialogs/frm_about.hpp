#pragma once

#include "platform/desktop.hpp"
#include "ui/forms/button.hpp"
#include "ui/forms/captioned.hpp"
#include "ui/forms/form.hpp"
#include "ui/forms/picture.hpp"

#include <string_view>

namespace tarnwick {

// Says what the program is and where to read more. Refers to `desktop`, which must outlive it.
class frmAbout final : public Form {
  public:
    // `mainWindow` is where the main window is on the screen; `mpDocumentation` the address of the
    // MP tool's online documentation.
    frmAbout(Desktop& desktop, const Bounds& mainWindow, std::string_view mpDocumentation);

    // The button comes first: it has the focus.
    Button cmdOK{*this, "cmdOK", "OK", Button::Role::DefaultAndCancel};
    Picture picLogo{*this, "picLogo", "logo"};
    Picture Picture1{*this, "Picture1"};
    Label lblAboutProd{*this, "lblAboutProd", "Tarnwick"};
    Label lblVersionNum{*this, "lblVersionNum", "Version   02.00.00.07"};
    Label Label1{*this, "Label1", "FreeWare!  Unsupported Software"};
    Label Label2{*this, "Label2",
                 "This utility provides an interface to MP - A compiler for formal metadata . "
                 "More information about MP is found at the following link:"};
    LinkLabel lblLink;
    Label lblCorvane{*this, "lblCorvane", "Corvane"};

  private:
    void Form_Load();
    void Form_MouseMove() { setMousePointer(MousePointer::Default); }
    void Label2_MouseMove() { setMousePointer(MousePointer::Default); }
    void Picture1_MouseMove() { setMousePointer(MousePointer::Default); }
    void lblLink_MouseMove() { setMousePointer(MousePointer::ArrowQuestion); }
    void lblLink_Click();
    void cmdOK_Click() { unload(); }

    Desktop& desktop_;
    Bounds mainWindow_;
};

} // namespace tarnwick
