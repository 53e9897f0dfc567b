#include "definition/ini_file.hpp"
#include "platform/run_time_error.hpp"
#include "support/faulty_files.hpp"
#include "support/hosted_world.hpp"
#include "support/messages.hpp"
#include "support/outputs.hpp"
#include "support/scripted_desktop.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class INIWriter : public testing::Test {
  protected:
    INIWriter() {
        MyDefaultSettings(definition);
        definition.sMPExecutable = "C:\\Tools\\mp.exe";
        definition.sCNSExecutable = "C:\\Tools\\cns.exe";
        definition.sINIFile = "C:\\batch.ini";
        definition.bSettingsChanged = true;
        world.makeDrive('D');
        for (const char* folder : {"D:\\records", "D:\\out\\err", "D:\\out\\xml"}) {
            world.makeFolder(folder);
        }
    }

    HostedWorld world;
    ScriptedDesktop desktop;
    BatchDefinition definition;
};

TEST_F(INIWriter, A_usual_definition_is_written_to_the_byte) {
    definition.sInputFolder = "D:\\records";
    definition.sInputExtensions = "*.met";
    definition.sCNSOutputFolder = "D:\\out";
    definition.bConvertHyperlinks = true;
    output(definition, "Error").sOutputFolder = "D:\\out\\err";
    output(definition, "Xml").sOutputFolder = "D:\\out\\xml";
    SaveINIFile(definition, world.files(), desktop);
    EXPECT_EQ(world.read("C:\\batch.ini"), "MP EXECUTABLE=C:\\Tools\\mp.exe\r\n"
                                           "CNS EXECUTABLE=C:\\Tools\\cns.exe\r\n"
                                           "Process MP=1\r\n"
                                           "Process CNS=0\r\n"
                                           "Command Line Logging=False\r\n"
                                           "Command Line Log Filename=\r\n"
                                           "Input Folder=D:\\records\r\n"
                                           "Input File Extension=*.met\r\n"
                                           "CNS Output Folder=D:\\out\r\n"
                                           "CNS Output File Extension=.cns\r\n"
                                           "Convert HyperLink To Relative Path=True\r\n"
                                           "Language=English\r\n"
                                           "FIX DOC=0\r\n"
                                           "Error Extension=.err\r\n"
                                           "GRID_Error=D:\\out\\err\r\n"
                                           "Xml Extension=.xml\r\n"
                                           "GRID_Xml=D:\\out\\xml\r\n");
    EXPECT_FALSE(definition.bSettingsChanged);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(INIWriter, A_definition_that_uses_everything_is_written_to_the_byte) {
    definition.iProcessMP = 0;
    definition.iProcessCNS = 1;
    definition.bCommandLineLogging = true;
    definition.sCommandLineLogFile = "C:\\my log.log";
    definition.sInputFolder = " D:\\records ";
    definition.sInputExtensions = " *.a;*.b ";
    definition.sCNSOutputFolder = " D:\\out ";
    definition.sCNSOutputExtension = " .c ";
    definition.bUseAliases = 1;
    definition.sAliasesFile = " C:\\alias=1.txt ";
    definition.sLanguage = "French ";
    definition.iFixDoc = 1;
    definition.bUseConfigFile = 1;
    definition.sConfigFile = " C:\\mp.cfg ";
    for (OutputDefinition& output : definition.MPOutputs) {
        output.bBuild = true;
        output.sOutputFolder = "D:\\out";
    }
    for (OutputDefinition& output : definition.CNSOutputs) {
        output.bBuild = true;
        output.sOutputFolder = "D:\\out\\err";
        output.sExtension = " " + output.sExtension;
    }
    EXPECT_EQ(iniFileText(definition, world.files()), "MP EXECUTABLE=C:\\Tools\\mp.exe\r\n"
                                                      "CNS EXECUTABLE=C:\\Tools\\cns.exe\r\n"
                                                      "Process MP=0\r\n"
                                                      "Process CNS=1\r\n"
                                                      "Command Line Logging=True\r\n"
                                                      "Command Line Log Filename=C:\\my log.log\r\n"
                                                      "Input Folder= D:\\records \r\n"
                                                      "Input File Extension= *.a;*.b \r\n"
                                                      "CNS Output Folder= D:\\out \r\n"
                                                      "CNS Output File Extension= .c \r\n"
                                                      "Aliases File=C:\\alias=1.txt\r\n"
                                                      "Convert HyperLink To Relative Path=False\r\n"
                                                      "Language=French \r\n"
                                                      "FIX DOC=1\r\n"
                                                      "Configuration File=C:\\mp.cfg\r\n"
                                                      "Info Extension= .info\r\n"
                                                      "GRID_Info_file=D:\\out\\err\r\n"
                                                      "Leftovers Extension= .lft\r\n"
                                                      "GRID_Leftovers=D:\\out\\err\r\n"
                                                      "Error Extension=.err\r\n"
                                                      "GRID_Error=D:\\out\r\n"
                                                      "Text Extension=.txt\r\n"
                                                      "GRID_Text=D:\\out\r\n"
                                                      "Html Extension=.html\r\n"
                                                      "GRID_Html=D:\\out\r\n"
                                                      "Faq Extension=_faq.htm\r\n"
                                                      "GRID_Faq=D:\\out\r\n"
                                                      "Sgml Extension=.sgml\r\n"
                                                      "GRID_Sgml=D:\\out\r\n"
                                                      "Xml Extension=.xml\r\n"
                                                      "GRID_Xml=D:\\out\r\n"
                                                      "Dif Extension=.dif\r\n"
                                                      "GRID_Dif=D:\\out\r\n");
}

TEST_F(INIWriter, Aliases_and_configuration_file_are_written_only_when_exactly_checked) {
    definition.sAliasesFile = "C:\\a.txt";
    definition.sConfigFile = "C:\\c.cfg";
    definition.bUseAliases = 2;
    definition.bUseConfigFile = 2;
    const std::string text = iniFileText(definition, world.files());
    EXPECT_EQ(text.find("Aliases File"), std::string::npos);
    EXPECT_EQ(text.find("Configuration File"), std::string::npos);
}

TEST_F(INIWriter, A_product_without_an_existing_folder_keeps_its_extension_line_only) {
    output(definition, "Error").sOutputFolder = "C:\\NoSuchFolder";
    const std::string text = iniFileText(definition, world.files());
    EXPECT_THAT(text, HasSubstr("Error Extension=.err\r\nXml Extension=.xml\r\n"));
    EXPECT_EQ(text.find("GRID_"), std::string::npos);
}

TEST_F(INIWriter, A_row_of_an_unknown_type_has_no_extension_line) {
    output(definition, "Error") = {
        .bBuild = true, .sFileType = "Foo", .sExtension = ".f", .sOutputFolder = "D:\\out\\err"};
    const std::string text = iniFileText(definition, world.files());
    EXPECT_THAT(text, HasSubstr("FIX DOC=0\r\nGRID_Foo=D:\\out\\err\r\n"));
}

TEST_F(INIWriter, Bytes_above_127_are_written_as_they_are) {
    definition.sInputFolder = "D:\\donn\xE9"
                              "es \x80\xFF";
    EXPECT_THAT(iniFileText(definition, world.files()), HasSubstr("Input Folder=D:\\donn\xE9"
                                                                  "es \x80\xFF\r\n"));
}

// A save that fails, wherever it does, leaves the old file whole and nothing beside it, is
// reported, and leaves the definition marked as changed.
class FailedSave : public INIWriter {
  protected:
    void expectOldFileAfter(const auto& breakIt) {
        world.write("C:\\batch.ini", "old\r\n");
        FaultyFiles faulty(world.files());
        breakIt(faulty);
        SaveINIFile(definition, faulty, desktop);
        EXPECT_EQ(world.read("C:\\batch.ini"), "old\r\n");
        EXPECT_THAT(world.files().listFiles("C:\\", "").names, ElementsAre("batch.ini"));
        EXPECT_TRUE(definition.bSettingsChanged);
    }
    void expectOldFileWhenFailing(FileOperation operation,
                                  ErrorNumber number = ErrorNumber::DiskFull) {
        expectOldFileAfter(
            [&](FaultyFiles& faulty) { faulty.failAt(operation, 1, RunTimeError(number)); });
        EXPECT_THAT(desktop.messages,
                    ElementsAre(errorReport("frmMain", "Public Sub SaveINIFile()", number)));
    }
};

TEST_F(FailedSave, A_file_that_cannot_be_created_changes_nothing) {
    expectOldFileWhenFailing(FileOperation::CreateNew);
}
TEST_F(FailedSave, A_full_disk_while_writing_changes_nothing) {
    expectOldFileWhenFailing(FileOperation::Write);
}
TEST_F(FailedSave, A_full_disk_while_flushing_changes_nothing) {
    expectOldFileWhenFailing(FileOperation::Flush);
}
TEST_F(FailedSave, A_full_disk_while_closing_changes_nothing) {
    expectOldFileWhenFailing(FileOperation::Close);
}
TEST_F(FailedSave, A_file_that_cannot_be_put_in_its_place_changes_nothing) {
    expectOldFileWhenFailing(FileOperation::MoveOver);
}
TEST_F(FailedSave, A_file_that_another_program_holds_stays_as_it_is) {
    expectOldFileWhenFailing(FileOperation::MoveOver, ErrorNumber::PermissionDenied);
}
TEST_F(FailedSave, A_read_only_file_stays_as_it_is) {
    expectOldFileAfter([&](FaultyFiles&) { world.makeReadOnly("C:\\batch.ini"); });
    EXPECT_THAT(desktop.messages, ElementsAre(errorReport("frmMain", "Public Sub SaveINIFile()",
                                                          ErrorNumber::PathFileAccess, EACCES)));
}

TEST_F(INIWriter, A_folder_of_the_files_name_is_reported_and_left_alone) {
    world.makeFolder("C:\\batch.ini");
    SaveINIFile(definition, world.files(), desktop);
    EXPECT_THAT(desktop.messages, ElementsAre(errorReport("frmMain", "Public Sub SaveINIFile()",
                                                          ErrorNumber::PathFileAccess, EISDIR)));
    EXPECT_TRUE(world.files().canListFolder("C:\\batch.ini\\"));
    EXPECT_THAT(world.files().listFiles("C:\\", "").names, IsEmpty());
}

TEST_F(INIWriter, A_missing_folder_is_reported) {
    definition.sINIFile = "C:\\missing\\batch.ini";
    SaveINIFile(definition, world.files(), desktop);
    EXPECT_THAT(desktop.messages, ElementsAre(errorReport("frmMain", "Public Sub SaveINIFile()",
                                                          ErrorNumber::PathNotFound)));
}

} // namespace
} // namespace tarnwick
