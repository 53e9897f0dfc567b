// The text of MP's configuration file, of any bytes: what it names is what a plain second reader
// finds, and the outputs are switched off exactly where it names them.

#include "memory_files.hpp"
#include "postprocess/configuration_file.hpp"
#include "reference/plain_configuration.hpp"
#include "require.hpp"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarnwick {
namespace {

BatchDefinition definitionBefore() {
    BatchDefinition definition;
    LoadDefaultGridSettings(definition);
    definition.sConfigFile = "C:\\a.cfg";
    definition.sCNSOutputFolder = "C:\\cns";
    definition.bCfgNamesInput = true;
    definition.bCfgNamesOutput = true;
    return definition;
}

BatchDefinition expectedAfter(const ConfigurationEntries& entries, bool cns) {
    BatchDefinition expected = definitionBefore();
    expected.iProcessCNS = cns ? checked : 0;
    expected.bCfgNamesInput = entries.namesInput;
    expected.bCfgNamesOutput = entries.namesOutput;
    if (entries.namesOutput) {
        for (OutputDefinition& row : expected.MPOutputs) {
            row = OutputDefinition{false, row.sFileType, "", ""};
        }
        for (OutputDefinition& row : expected.CNSOutputs) {
            row = OutputDefinition{false, row.sFileType, "", ""};
        }
        if (cns) {
            expected.sCNSOutputFolder.clear();
            expected.sCNSOutputExtension.clear();
        }
    }
    return expected;
}

void tryText(std::string_view text) {
    const MemoryFiles files(text);
    const bool cns = text.size() % 2 == 1;
    BatchDefinition read = definitionBefore();
    read.iProcessCNS = cns ? checked : 0;
    inspectConfigurationFile(read, files);
    require(read == expectedAfter(reference::configurationEntries(text), cns),
            "the definition is what the plain reader gives");
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarnwick::tryText({reinterpret_cast<const char*>(data), size});
    return 0;
}
