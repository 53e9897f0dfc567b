#pragma once

#include "support/fake_clock.hpp"
#include "support/fake_command_interpreter.hpp"
#include "support/fake_process.hpp"
#include "support/memory_settings_store.hpp"
#include "ui/main/frm_main.hpp"
#include "unit/faults/every_step.hpp"

#include <optional>
#include <string>
#include <utility>

namespace tarnwick {

// Something that is done in the main window: over two records with both tools, a configuration that
// is stored in C:\App\TARNWICK.ini, and pages whose links are to become relative.
class WindowUseCase : public UseCase {
  public:
    WindowUseCase();

    [[nodiscard]] std::string state() override;

  protected:
    // The user chooses that file in the dialog that comes next, if one comes.
    void choose(std::string_view path) { desktop.chosenFiles = {std::string(path)}; }

    FakeClock clock;
    FakePendingEvents events{clock};
    FakeCommandInterpreter interpreter{world.files()};
    FakeProcess process;
    MemorySettingsStore settings;
    MainServices services{
        .files = files,
        .desktop = desktop,
        .interpreter = interpreter,
        .events = events,
        .clock = clock,
        .process = process,
        .settings = settings,
        .pickFolder = [](std::string_view, std::string_view) { return std::string(); },
        .showOptions = [](BatchDefinition& definition) { definition.bCommandLineLogging = true; },
        .showAbout = [] {},
    };
    frmMain form{services};

  private:
    void putFiles();
};

// The text of its stored definition.
[[nodiscard]] std::string storedDefinition();

} // namespace tarnwick
