#include "definition/start_up.hpp"

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "definition/stored_settings.hpp"

namespace tarnwick {
namespace {

std::string appFolder(const Process& process, const Files& files) {
    const std::string programFolder(trim(process.programFolder()));
    return withBackslash(programFolder.empty() ? files.currentFolder() : programFolder);
}

std::string tempFolder(const Process& process, const Files& files, std::string_view appFolder) {
    const std::string temp(trim(process.environmentVariable("TEMP")));
    return withBackslash(FolderExists(files, temp) ? temp : appFolder);
}

std::string toolLocation(const std::string& besideProgram, StoredSetting setting,
                         const Files& files, const SettingsStore& store) {
    return FileExists(files, besideProgram) ? besideProgram
                                            : readStored(store, setting, besideProgram);
}

} // namespace

BatchDefinition definitionAtStartUp(const Process& process, const Files& files,
                                    const SettingsStore& store) {
    BatchDefinition definition;
    definition.sAppFolder = appFolder(process, files);
    definition.sTempFolder = tempFolder(process, files, definition.sAppFolder);
    definition.sINIFile = readStored(store, StoredSetting::INIFileName,
                                     definition.sAppFolder + std::string(defaultINIFileName));
    definition.sMPExecutable =
        toolLocation(definition.sAppFolder + "mp.exe", StoredSetting::MPExecutable, files, store);
    definition.sCNSExecutable =
        toolLocation(definition.sAppFolder + "cns.exe", StoredSetting::CNSExecutable, files, store);
    MyDefaultSettings(definition);
    return definition;
}

LeftOut namelessAtStartUp(const Process& process, const SettingsStore& store) {
    LeftOut nameless;
    for (const std::string& path : {process.programFolder(), process.environmentVariable("TEMP"),
                                    readStored(store, StoredSetting::INIFileName, ""),
                                    readStored(store, StoredSetting::MPExecutable, ""),
                                    readStored(store, StoredSetting::CNSExecutable, "")}) {
        if (holdsShownNumber(path)) {
            leaveOut(path, nameless);
        }
    }
    return nameless;
}

} // namespace tarnwick
