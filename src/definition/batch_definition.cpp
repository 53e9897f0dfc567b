#include "definition/batch_definition.hpp"

namespace tarnwick {

void MyDefaultSettings(BatchDefinition& definition) {
    definition.iFixDoc = 0;
    definition.bCommandLineLogging = false;
    definition.sLanguage = "English";
    definition.bUseConfigFile = 0;
    LoadDefaultGridSettings(definition);
}

void LoadDefaultGridSettings(BatchDefinition& definition) {
    definition.MPOutputs = {{
        {.bBuild = true, .sFileType = "Error", .sExtension = ".err", .sOutputFolder = {}},
        {.bBuild = false, .sFileType = "Text", .sExtension = ".txt", .sOutputFolder = {}},
        {.bBuild = false, .sFileType = "Html", .sExtension = ".html", .sOutputFolder = {}},
        // A suffix, not a dot extension: rec_faq.htm stands beside rec.html.
        {.bBuild = false, .sFileType = "Faq", .sExtension = "_faq.htm", .sOutputFolder = {}},
        {.bBuild = false, .sFileType = "Sgml", .sExtension = ".sgml", .sOutputFolder = {}},
        {.bBuild = true, .sFileType = "Xml", .sExtension = ".xml", .sOutputFolder = {}},
        {.bBuild = false, .sFileType = "Dif", .sExtension = ".dif", .sOutputFolder = {}},
    }};
    definition.CNSOutputs = {{
        {.bBuild = false, .sFileType = "Info_file", .sExtension = ".info", .sOutputFolder = {}},
        {.bBuild = false, .sFileType = "Leftovers", .sExtension = ".lft", .sOutputFolder = {}},
    }};
}

} // namespace tarnwick
