#include "ui/dialogs/frm_about.hpp"

#include "common/mod_main.hpp"
#include "ui/forms/connect.hpp"

namespace tarnwick {
namespace {

constexpr int productNamePoints = 20;

} // namespace

frmAbout::frmAbout(Desktop& desktop, const Bounds& mainWindow, std::string_view mpDocumentation)
    : Form("frmAbout", "About Tarnwick"),
      lblLink(*this, "lblLink", mpDocumentation),
      desktop_(desktop),
      mainWindow_(mainWindow) {
    lblAboutProd.setFont({.name = {}, .points = productNamePoints});
    picLogo.setAccessibleName("The logo of Corvane");
    Load = [this] { Form_Load(); };
    MouseMove = [this] { Form_MouseMove(); };
    Label2.MouseMove = [this] { Label2_MouseMove(); };
    Picture1.MouseMove = [this] { Picture1_MouseMove(); };
    lblLink.MouseMove = [this] { lblLink_MouseMove(); };
    Connector(desktop_, *this).click(lblLink, &frmAbout::lblLink_Click);
    cmdOK.Click = [this] { cmdOK_Click(); };
}

void frmAbout::Form_Load() {
    moveTo(mainWindow_.left + (mainWindow_.width - window().width) / 2,
           mainWindow_.top + (mainWindow_.height - window().height) / 2);
}

void frmAbout::lblLink_Click() {
    StartDoc(desktop_, lblLink.caption());
}

} // namespace tarnwick
