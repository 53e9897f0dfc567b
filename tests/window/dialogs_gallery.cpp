// dialog_gallery errors RESULT LAYOUT: writes into RESULT how forms end that cannot be shown.
//
// dialog_gallery options|help RESULT LAYOUT: shows one dialog in its real window. Once it is laid
// out, the file LAYOUT says where each control is, for somebody with a mouse: "name x y", the
// middle of the control in twips. When the dialog is gone, RESULT says what it left of the
// definition.

#include "definition/batch_definition.hpp"
#include "platform/run_time_error.hpp"
#include "platform/win32/win32_desktop.hpp"
#include "platform/win32/win32_files.hpp"
#include "ui/dialogs/frm_display_command_line_help.hpp"
#include "ui/dialogs/frm_options.hpp"
#include "ui/win32/win32_form_presenter.hpp"

#include <exception>
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
        raise(resize);
        std::ofstream out(layoutFile, std::ios::binary);
        for (const Control* const control : form.controls()) {
            const Bounds& bounds = control->bounds();
            out << control->name() << ' ' << bounds.left + bounds.width / 2 << ' '
                << bounds.top + bounds.height / 2 << '\n';
        }
    };
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

bool run(std::string_view dialog, const std::string& resultFile, const std::string& layoutFile) {
    const Win32Files files;
    Win32Desktop desktop;
    Win32FormPresenter presenter;
    BatchDefinition shown = definition();
    if (dialog == "options") {
        frmOptions form(shown, files, desktop);
        writeLayoutWhenShown(form, layoutFile);
        presenter.showModal(form);
    } else if (dialog == "help") {
        frmDisplayCommandLineHelp form;
        writeLayoutWhenShown(form, layoutFile);
        presenter.showModal(form);
    } else if (dialog != "errors") {
        return false;
    }
    std::ofstream out(resultFile, std::ios::binary);
    if (dialog == "errors") {
        printErrors(out);
    } else {
        print(out, shown);
    }
    return out.good();
}

} // namespace
} // namespace tarnwick::gallery

int main(int argc, char* argv[]) {
    constexpr int arguments = 4;
    try {
        return argc == arguments && tarnwick::gallery::run(argv[1], argv[2], argv[3]) ? 0 : 2;
    } catch (const std::exception& error) {
        std::ofstream("gallery-error.txt") << error.what() << '\n';
        return 1;
    }
}
