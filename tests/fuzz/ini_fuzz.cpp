// The text of an INI file, of any bytes: read, it gives what a plain second reader gives; and what
// is written of that and read again is written in the same way.

#include "definition/ini_file.hpp"
#include "fields.hpp"
#include "memory_files.hpp"
#include "platform/run_time_error.hpp"
#include "reference/plain_ini.hpp"
#include "require.hpp"

#include <cstddef>
#include <cstdint>
#include <string>

namespace tarnwick {
namespace {

// A definition in which every field can be seen to have been left alone.
BatchDefinition definitionBefore() {
    BatchDefinition definition;
    LoadDefaultGridSettings(definition);
    definition.sAppFolder = "C:\\program\\";
    definition.sINIFile = "C:\\program\\a.ini";
    definition.sMPExecutable = "old mp";
    definition.sCNSExecutable = "old cns";
    definition.sInputFolder = "C:\\old";
    definition.sInputExtensions = "*.old";
    definition.sCNSOutputFolder = "C:\\old\\cns";
    definition.sCommandLineLogFile = "old.log";
    definition.sAliasesFile = "old aliases";
    definition.sConfigFile = "old.cfg";
    definition.bUseConfigFile = checked;
    definition.bCfgNamesOutput = true;
    return definition;
}

void tryText(std::string_view text) {
    const MemoryFiles files(text);
    BatchDefinition expected = definitionBefore();
    const bool ours = reference::readDefinition(expected, files, text);
    BatchDefinition read = definitionBefore();
    try {
        readDefinition(read, files);
        require(ours, "what holds nothing known is refused");
    } catch (const RunTimeError& error) {
        require(!ours && error.is(ErrorNumber::InvalidFileFormat), "what is known is read");
    }
    require(read == expected, "the definition is what the plain reader gives");
    if (!ours) {
        return;
    }
    const std::string written = iniFileText(read, files);
    const MemoryFiles again(written);
    BatchDefinition reread = read;
    readDefinition(reread, again);
    require(iniFileText(reread, again) == written, "and written again as it was");
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarnwick::tryText({reinterpret_cast<const char*>(data), size});
    return 0;
}
