// Builds the real platform and the forms, and runs the start-up.

#include "common/left_out_report.hpp"
#include "common/trap.hpp"
#include "common/unseen_desktop.hpp"
#include "definition/start_up.hpp"
#include "platform/win32/win32_clock.hpp"
#include "platform/win32/win32_command_interpreter.hpp"
#include "platform/win32/win32_desktop.hpp"
#include "platform/win32/win32_event_log.hpp"
#include "platform/win32/win32_files.hpp"
#include "platform/win32/win32_pending_events.hpp"
#include "platform/win32/win32_process.hpp"
#include "platform/win32/win32_settings_store.hpp"
#include "processing/unattended_mode.hpp"
#include "ui/dialogs/frm_about.hpp"
#include "ui/dialogs/frm_display_command_line_help.hpp"
#include "ui/dialogs/frm_open_folder.hpp"
#include "ui/dialogs/frm_options.hpp"
#include "ui/forms/unseen_presenter.hpp"
#include "ui/main/documentation.hpp"
#include "ui/main/frm_main.hpp"
#include "ui/win32/win32_form_presenter.hpp"
#include "ui/win32/win32_main_window.hpp"

#include <windows.h>

namespace tarnwick {
namespace {

enum ExitStatus : int { done = 0, notDone = 1 };

// The system and the dialogs, for the whole run of the program.
class Application {
  public:
    ExitStatus run() {
        ExitStatus status = notDone;
        trap(desktop_, "frmMain", "Private Sub Form_Load()", [&] {
            const std::string commandLine = process_.commandLine();
            status = commandLine.empty() ? showMainWindow() : runUnattended(commandLine);
        });
        return status;
    }

  private:
    void show(Form&& form) { presenter_.showModal(form); }

    void showOptions(BatchDefinition& definition) {
        show(frmOptions(definition, files_, desktop_));
    }

    // Makes no window of its own: a batch at night may have nobody's screen to show it on.
    ExitStatus runUnattended(std::string_view commandLine) {
        // Inherited by the tools: the fault of one must not hold all records behind it.
        SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
        BatchDefinition definition = definitionAtStartUp(process_, files_, settings_);
        const UnattendedServices services{.files = files_,
                                          .desktop = desktop_,
                                          .interpreter = interpreter_,
                                          .events = events_,
                                          .showHelp = [this] { show(frmDisplayCommandLineHelp()); },
                                          .showOptions = [&] { showOptions(definition); }};
        const UnattendedResult result = RunCommandLine(definition, services, commandLine);
        // Not before the tools are under way: nobody may be there to answer.
        tellNamelessPaths(desktop_, namelessAtStartUp(process_, settings_));
        return result == UnattendedResult::BatchStarted ? done : notDone;
    }

    ExitStatus showMainWindow() {
        if (!desktop_.isSeen()) { // not even loaded: it would ask, and store its settings
            showWarning(desktop_, "Tarnwick has ended: nobody can see its window. A run without a "
                                  "window takes the option -I.");
            return notDone;
        }
        frmMain main(
            {.files = files_,
             .desktop = desktop_,
             .interpreter = interpreter_,
             .events = events_,
             .clock = clock_,
             .process = process_,
             .settings = settings_,
             .pickFolder =
                 [this](std::string_view title, std::string_view startFolder) {
                     return pickFolder(presenter_, files_, desktop_, title, startFolder);
                 },
             .showOptions = [this](BatchDefinition& definition) { showOptions(definition); },
             .showAbout = [&] { show(frmAbout(desktop_, main.window(), mpDocumentation)); }});
        mainWindow_.run(main);
        return done;
    }

    Win32Files files_;
    Win32Desktop screen_;
    Win32EventLog eventLog_;
    UnseenDesktop noScreen_{eventLog_};
    Desktop& desktop_ = screen_.isSeen() ? static_cast<Desktop&>(screen_) : noScreen_;
    Win32CommandInterpreter interpreter_;
    Win32Clock clock_;
    Win32Process process_;
    Win32SettingsStore settings_;
    Win32FormPresenter shownForms_;
    UnseenPresenter unseenForms_{desktop_};
    FormPresenter& presenter_ =
        desktop_.isSeen() ? static_cast<FormPresenter&>(shownForms_) : unseenForms_;
    Win32MainWindow mainWindow_;
    Win32PendingEvents events_{&mainWindow_};
};

} // namespace
} // namespace tarnwick

namespace {

// For this process and what it starts. A program is looked for in the path alone, not in the
// current folder: a batch stands in the folder of the records, where others may put files.
void lookForProgramsInThePathAlone() noexcept {
    SetEnvironmentVariableW(L"NoDefaultCurrentDirectoryInExePath", L"1");
}

} // namespace

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, LPWSTR /*commandLine*/,
                    int /*show*/) {
    lookForProgramsInThePathAlone();
    SetDllDirectoryW(L""); // libraries are not looked for in the current folder either
    SetErrorMode(SEM_FAILCRITICALERRORS); // no question for a disk that is not in its drive
    return tarnwick::Application().run();
}
