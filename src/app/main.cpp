// Builds the real platform and the forms, and runs the start-up.

#include "common/trap.hpp"
#include "definition/start_up.hpp"
#include "platform/win32/win32_command_interpreter.hpp"
#include "platform/win32/win32_desktop.hpp"
#include "platform/win32/win32_files.hpp"
#include "platform/win32/win32_pending_events.hpp"
#include "platform/win32/win32_process.hpp"
#include "platform/win32/win32_settings_store.hpp"
#include "processing/command_line_mode.hpp"
#include "ui/dialogs/frm_display_command_line_help.hpp"
#include "ui/dialogs/frm_options.hpp"
#include "ui/win32/win32_form_presenter.hpp"

#include <windows.h>

namespace tarnwick {
namespace {

enum ExitStatus : int { done = 0, notDone = 1 };

// Everything that the system gives, for the whole run of the program.
struct System {
    Win32Files files;
    Win32Desktop desktop;
    Win32CommandInterpreter interpreter;
    Win32PendingEvents events;
    Win32Process process;
    Win32SettingsStore settings;
    Win32FormPresenter presenter;
};

void showHelp(System& system) {
    frmDisplayCommandLineHelp form;
    system.presenter.showModal(form);
}

ExitStatus runUnattended(System& system, BatchDefinition& definition, std::string_view text) {
    RecordSelection records;
    const CommandLineServices services{.files = system.files,
                                       .desktop = system.desktop,
                                       .interpreter = system.interpreter,
                                       .events = system.events,
                                       .showHelp = [&] { showHelp(system); },
                                       .showOptions =
                                           [&] {
                                               frmOptions form(definition, system.files,
                                                               system.desktop);
                                               system.presenter.showModal(form);
                                           }};
    return RunCommandLine(definition, records, services, text) == CommandLineResult::BatchStarted
               ? done
               : notDone;
}

ExitStatus start(System& system) {
    ExitStatus status = notDone;
    trap(system.desktop, "frmMain", "Private Sub Form_Load()", [&] {
        BatchDefinition definition =
            definitionAtStartUp(system.process, system.files, system.settings);
        const std::string commandLine = system.process.commandLine();
        if (commandLine.empty()) {
            showHelp(system); // there is no main window yet: say how a definition is run
        } else {
            status = runUnattended(system, definition, commandLine);
        }
    });
    return status;
}

} // namespace
} // namespace tarnwick

int WINAPI WinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, LPSTR /*commandLine*/,
                   int /*show*/) {
    tarnwick::System system;
    return tarnwick::start(system);
}
