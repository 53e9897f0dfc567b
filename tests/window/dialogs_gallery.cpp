// dialog_gallery errors RESULT LAYOUT: writes into RESULT how forms end that cannot be shown.
//
// dialog_gallery options|help|folder|about RESULT LAYOUT: shows one dialog in its real window. Once
// it is laid out, the file LAYOUT says where each control is, for somebody with a mouse: "name x y
// height", the middle of the control and its height in twips. When the dialog is gone, RESULT says
// what came of it.

#include "definition/batch_definition.hpp"
#include "platform/run_time_error.hpp"
#include "platform/win32/win32_desktop.hpp"
#include "platform/win32/win32_files.hpp"
#include "ui/dialogs/frm_about.hpp"
#include "ui/dialogs/frm_display_command_line_help.hpp"
#include "ui/dialogs/frm_open_folder.hpp"
#include "ui/dialogs/frm_options.hpp"
#include "ui/win32/win32_form_presenter.hpp"
#include "window/gallery.hpp"

#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

namespace tarnwick::gallery {
namespace {

// Its tools lie in C:\gallery, which the caller lays out.
BatchDefinition definition() {
    BatchDefinition result;
    result.sAppFolder = "C:\\gallery\\";
    result.sMPExecutable = "C:\\gallery\\mp.exe";
    result.sCNSExecutable = "C:\\gallery\\cns.exe";
    result.iProcessMP = 1;
    result.iProcessCNS = 1;
    return result;
}

void print(std::ostream& out, const BatchDefinition& shown) {
    out << "sMPExecutable=" << shown.sMPExecutable << '\n'
        << "sCNSExecutable=" << shown.sCNSExecutable << '\n'
        << "bCommandLineLogging=" << shown.bCommandLineLogging << '\n'
        << "sCommandLineLogFile=" << shown.sCommandLineLogFile << '\n'
        << "bConvertHyperlinks=" << shown.bConvertHyperlinks << '\n'
        << "bSettingsChanged=" << shown.bSettingsChanged << '\n';
}

void writeLayoutWhenShown(Form& form, const std::string& layoutFile) {
    form.Resize = [&form, layoutFile, resize = form.Resize] {
        fire(resize);
        std::ofstream out(layoutFile, std::ios::binary);
        for (const Control* const control : form.controls()) {
            const Bounds& bounds = control->bounds();
            out << control->name() << ' ' << bounds.left + bounds.width / 2 << ' '
                << bounds.top + bounds.height / 2 << ' ' << bounds.height << '\n';
        }
    };
}

// Opens no document, but says which one it was told to open.
class TellingDesktop final : public Win32Desktop {
  public:
    explicit TellingDesktop(std::ostream& out) : out_(out) {}

    std::int32_t openDocument(std::string_view document,
                              std::string_view /*workingFolder*/) override {
        out_ << "opened=" << document << '\n';
        return 42; // success
    }

  private:
    std::ostream& out_;
};

void showFolderPicker(std::ostream& out, const std::string& layoutFile) {
    Win32Files files;
    Win32Desktop desktop;
    Win32FormPresenter presenter;
    frmOpenFolder form(files, desktop, askingIn(presenter));
    form.setStartFolder("C:\\gallery");
    form.setCaption("Open HTML Folder");
    writeLayoutWhenShown(form, layoutFile);
    presenter.showModal(form);
    out << "folder=" << form.result() << '\n' << "drive=" << form.drvPath.drive() << '\n';
}

void showAbout(std::ostream& out, const std::string& layoutFile) {
    TellingDesktop desktop(out);
    frmAbout form(desktop, {.left = 3000, .top = 2000, .width = 12735, .height = 8460},
                  "https://www.corvane.example/mp/doc/mp.html");
    writeLayoutWhenShown(form, layoutFile);
    Win32FormPresenter().showModal(form);
    out << "pointer="
        << (form.mousePointer() == MousePointer::ArrowQuestion ? "arrow and question mark"
                                                               : "default")
        << '\n';
}

std::string errorOfShowing(Form& form) {
    try {
        Win32FormPresenter().showModal(form);
        return "none";
    } catch (const RunTimeError& error) {
        return std::to_string(error.record().number) + ' ' + error.record().description +
               (form.visible() ? ", still visible" : "");
    }
}

void printErrors(std::ostream& out) {
    frmDisplayCommandLineHelp failing;
    failing.Resize = [] { throw RunTimeError(ErrorNumber::DeviceIO); };
    out << "handler=" << errorOfShowing(failing) << '\n';
    Form unknown("frmNowhere", "");
    out << "resource=" << errorOfShowing(unknown) << '\n';
    Form bare("frmDisplayCommandLineHelp", "");
    out << "control=" << errorOfShowing(bare) << '\n';
    frmDisplayCommandLineHelp richer;
    const Label label(richer, "lblMore", "");
    out << "window=" << errorOfShowing(richer) << '\n';
    frmDisplayCommandLineHelp unloading;
    unloading.Load = [&unloading] { unloading.unload(); };
    out << "unloaded=" << errorOfShowing(unloading) << '\n';
}

void showOptions(std::ostream& out, const std::string& layoutFile) {
    const Win32Files files;
    Win32Desktop desktop;
    BatchDefinition shown = definition();
    frmOptions form(shown, files, desktop);
    writeLayoutWhenShown(form, layoutFile);
    Win32FormPresenter().showModal(form);
    print(out, shown);
}

void showHelp(const std::string& layoutFile) {
    frmDisplayCommandLineHelp form;
    writeLayoutWhenShown(form, layoutFile);
    Win32FormPresenter().showModal(form);
}

} // namespace

bool run(std::string_view dialog, const std::string& resultFile, const std::string& layoutFile) {
    std::ofstream out(resultFile, std::ios::binary);
    if (dialog == "options") {
        showOptions(out, layoutFile);
    } else if (dialog == "help") {
        showHelp(layoutFile);
    } else if (dialog == "folder") {
        showFolderPicker(out, layoutFile);
    } else if (dialog == "about") {
        showAbout(out, layoutFile);
    } else if (dialog == "errors") {
        printErrors(out);
    } else {
        return false;
    }
    return out.good();
}

} // namespace tarnwick::gallery
