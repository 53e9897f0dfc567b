// dialog_gallery options|help RESULT: shows one dialog in its real window and, when it is gone,
// writes what it left of the definition into the file RESULT.

#include "definition/batch_definition.hpp"
#include "ui/dialogs/frm_display_command_line_help.hpp"
#include "ui/dialogs/frm_options.hpp"
#include "ui/win32/win32_form_presenter.hpp"
#include "window/gallery_platform.hpp"

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

bool run(std::string_view dialog, const std::string& resultFile) {
    const auto files = makeFiles();
    const auto desktop = makeDesktop();
    Win32FormPresenter presenter;
    BatchDefinition shown = definition();
    if (dialog == "options") {
        frmOptions form(shown, *files, *desktop);
        presenter.showModal(form);
    } else if (dialog == "help") {
        frmDisplayCommandLineHelp form;
        presenter.showModal(form);
    } else {
        return false;
    }
    std::ofstream out(resultFile, std::ios::binary);
    print(out, shown);
    return out.good();
}

} // namespace
} // namespace tarnwick::gallery

int main(int argc, char* argv[]) {
    constexpr int arguments = 3;
    try {
        return argc == arguments && tarnwick::gallery::run(argv[1], argv[2]) ? 0 : 2;
    } catch (const std::exception& error) {
        std::ofstream("gallery-error.txt") << error.what() << '\n';
        return 1;
    }
}
