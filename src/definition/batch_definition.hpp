#pragma once

#include "definition/output_types.hpp"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwick {

// One output product of a tool: one row of an output definition grid.
struct OutputDefinition {
    bool bBuild = false;       // build this product
    std::string sFileType;     // the product's type name; fixed per row
    std::string sExtension;    // appended to the input file's base name
    std::string sOutputFolder; // receives the product

    bool operator==(const OutputDefinition&) const = default;
};

using MPOutputDefinitions = std::array<OutputDefinition, mpOutputTypes.size()>;
using CNSOutputDefinitions = std::array<OutputDefinition, cnsOutputTypes.size()>;

// The part of a definition that has no control in the main window, which holds it as a member.
struct ProgramSettings {
    std::string sAppFolder;        // the program's folder, ends in "\"
    std::string sTempFolder;       // for temporary files, ends in "\"
    std::string sMPExecutable;     // full path
    std::string sCNSExecutable;    // full path
    std::string sINIFile;          // full path of the file that stores this definition
    bool bSettingsChanged = false; // the definition differs from its INI file
    bool bCommandLineLogging = false;
    std::string sCommandLineLogFile;
    bool bConvertHyperlinks = false;
    bool bCfgNamesInput = false;  // the configuration file has an input entry; read by nobody yet
    bool bCfgNamesOutput = false; // the configuration file names the outputs itself

    bool operator==(const ProgramSettings&) const = default;
};

// Everything that says what one batch is: which tools run over which files with which options, and
// what they build where. A plain value; all texts are kept as typed.
struct BatchDefinition : ProgramSettings {
    // Shown and edited in the main window. Check states count as on only when exactly 1.
    int iProcessMP = 1;
    int iProcessCNS = 0;
    std::string sInputFolder;
    std::string sInputExtensions; // patterns, separated by ";"
    std::string sCNSOutputFolder;
    std::string sCNSOutputExtension = ".cns";
    int bUseAliases = 0;
    std::string sAliasesFile;
    int bUseConfigFile = 0;
    std::string sConfigFile;
    std::int16_t iFixDoc = 0; // 0 or 1
    std::string sLanguage = "English";
    MPOutputDefinitions MPOutputs;
    CNSOutputDefinitions CNSOutputs;

    bool operator==(const BatchDefinition&) const = default;
};

// A check box that is on; any other check state is off.
inline constexpr int checked = 1;

// In the program's folder; read when no other INI file is known.
inline constexpr std::string_view defaultINIFileName = "TARNWICK.ini";

// Leaves all nine products off, with their type names and default extensions and without a folder.
void switchOffAllOutputs(BatchDefinition& definition);

// Forgets what the configuration file was found to name: for whoever switches its use off.
void forgetConfigurationEntries(ProgramSettings& settings);

// Puts the settings with a default into their default state. Leaves the tool locations, the INI
// file name, the input fields and the process check states as they are.
void MyDefaultSettings(BatchDefinition& definition);

// Gives all nine output definitions their type names, default extensions and Build? states, and
// empty folders.
void LoadDefaultGridSettings(BatchDefinition& definition);

} // namespace tarnwick
