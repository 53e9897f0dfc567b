#pragma once

#include "definition/batch_definition.hpp"
#include "platform/clock.hpp"
#include "platform/command_interpreter.hpp"
#include "platform/desktop.hpp"
#include "platform/files.hpp"
#include "platform/process.hpp"
#include "platform/settings_store.hpp"
#include "ui/main/documentation.hpp"

#include <functional>
#include <string>
#include <string_view>

namespace tarnwick {

// What the main window needs of the system and of the rest of the program. The references must
// outlive the window. A callback that is left out does nothing, and gives nothing back.
struct MainServices {
    Files& files;
    Desktop& desktop;
    CommandInterpreter& interpreter;
    PendingEvents& events;
    const Clock& clock;
    const Process& process;
    SettingsStore& settings;

    // Each shows a dialog, modal to the main window, and returns when it is closed.
    // The folder that the user picked; empty when cancelled.
    std::function<std::string(std::string_view title, std::string_view startFolder)> pickFolder =
        nullptr;
    std::function<void(BatchDefinition& definition)> showOptions =
        nullptr; // may change the definition
    std::function<void()> showAbout = nullptr;

    // Web addresses, opened with the program associated with them.
    std::string mpHelp{mpDocumentation};
    std::string cnsHelp{cnsDocumentation};
};

} // namespace tarnwick
