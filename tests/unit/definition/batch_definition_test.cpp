#include "definition/batch_definition.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

BatchDefinition defaults() {
    BatchDefinition definition;
    MyDefaultSettings(definition);
    return definition;
}

TEST(BatchDefinition, After_defaults_exactly_the_error_report_and_the_xml_are_built) {
    const BatchDefinition definition = defaults();
    std::string built;
    for (const OutputDefinition& output : definition.MPOutputs) {
        built += output.bBuild ? output.sFileType + " " : "";
    }
    for (const OutputDefinition& output : definition.CNSOutputs) {
        built += output.bBuild ? output.sFileType + " " : "";
    }
    EXPECT_EQ(built, "Error Xml ");
}

TEST(BatchDefinition, The_nine_products_stand_in_their_order_with_their_extensions) {
    const MPOutputDefinitions mp{{{true, "Error", ".err", ""},
                                  {false, "Text", ".txt", ""},
                                  {false, "Html", ".html", ""},
                                  {false, "Faq", "_faq.htm", ""},
                                  {false, "Sgml", ".sgml", ""},
                                  {true, "Xml", ".xml", ""},
                                  {false, "Dif", ".dif", ""}}};
    const CNSOutputDefinitions cns{
        {{false, "Info_file", ".info", ""}, {false, "Leftovers", ".lft", ""}}};
    EXPECT_EQ(defaults().MPOutputs, mp);
    EXPECT_EQ(defaults().CNSOutputs, cns);
}

TEST(BatchDefinition, Defaults_leave_tools_ini_file_input_and_process_boxes_as_they_are) {
    BatchDefinition definition;
    definition.sMPExecutable = "C:\\t\\mp.exe";
    definition.sCNSExecutable = "C:\\t\\cns.exe";
    definition.sINIFile = "C:\\a.ini";
    definition.sInputFolder = "C:\\in";
    definition.sInputExtensions = "*.met";
    definition.sCNSOutputFolder = "C:\\cns";
    definition.sCNSOutputExtension = ".c";
    definition.bUseAliases = 1;
    definition.sAliasesFile = "C:\\al.txt";
    definition.sConfigFile = "C:\\c.cfg";
    definition.iProcessMP = 0;
    definition.iProcessCNS = 1;
    definition.bConvertHyperlinks = true;
    definition.sCommandLineLogFile = "l.log";
    definition.bSettingsChanged = true;
    BatchDefinition expected = definition;
    LoadDefaultGridSettings(expected);

    definition.iFixDoc = 1;
    definition.bCommandLineLogging = true;
    definition.sLanguage = "French";
    definition.bUseConfigFile = 1;
    MyDefaultSettings(definition);

    EXPECT_EQ(definition, expected);
    EXPECT_EQ(definition.sLanguage, "English");
}

} // namespace
} // namespace tarnwick
