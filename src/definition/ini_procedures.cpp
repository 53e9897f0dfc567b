// What the user's commands do with the INI file.

#include "common/mod_main.hpp"
#include "common/trap.hpp"
#include "definition/ini_file.hpp"

namespace tarnwick {
namespace {

// False when neither the file nor the default file in the program's folder exists.
bool findINIFile(BatchDefinition& definition, const Files& files) {
    if (FileExists(files, definition.sINIFile)) {
        return true;
    }
    definition.sINIFile = definition.sAppFolder + std::string(defaultINIFileName);
    return FileExists(files, definition.sINIFile);
}

} // namespace

bool SaveINIFile(BatchDefinition& definition, Files& files, Desktop& desktop) {
    return trap(desktop, "frmMain", "Public Sub SaveINIFile()",
                [&] { writeDefinition(definition, files); });
}

bool ReadINIFile(BatchDefinition& definition, const Files& files, Desktop& desktop,
                 const std::function<void()>& whenRead) {
    return trap(desktop, "frmMain", "Public Sub ReadINIFile()", [&] {
        if (findINIFile(definition, files)) {
            readDefinition(definition, files);
            whenRead();
        }
        definition.bSettingsChanged = false;
    });
}

} // namespace tarnwick
