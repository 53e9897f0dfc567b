// A definition that is saved and read back is equal in everything that the file stores, and
// differs exactly where the file leaves something out. Tried on generated definitions.

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "definition/ini_file.hpp"
#include "support/definition_generator.hpp"
#include "support/hosted_world.hpp"
#include "support/outputs.hpp"
#include "support/scripted_desktop.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarnwick {
namespace {

// Definitions whose files and folders are some that the test's machine has, and some that it has
// not.
class Generator : public DefinitionGenerator {
  public:
    using DefinitionGenerator::DefinitionGenerator;

    BatchDefinition definition() {
        BatchDefinition result = DefinitionGenerator::definition();
        result.sAppFolder = "C:\\app\\";
        result.sTempFolder = "";
        result.sINIFile = "C:\\batch.ini";
        result.bSettingsChanged = false;
        forgetConfigurationEntries(result);
        result.sMPExecutable = path();
        result.sCNSExecutable = path();
        result.sCommandLineLogFile = oddText();
        result.sInputFolder = folder();
        result.sInputExtensions = oddText();
        result.sCNSOutputFolder = path();
        result.sCNSOutputExtension = oddText();
        result.sAliasesFile = file();
        result.sLanguage = coin() ? "French" : oddText();
        result.sConfigFile = file();
        for (OutputDefinition& row : result.MPOutputs) {
            row.sOutputFolder = folder();
        }
        for (OutputDefinition& row : result.CNSOutputs) {
            row.sOutputFolder = folder();
        }
        return result;
    }

  private:
    // What the file might take for something else: blanks, "=", bytes above 127.
    std::string oddText() { return textOf("abcXYZ019 .=*;_-\\:\"'%\t\x80\xA0\xE9\xFE\xFF"); }
    std::string path() { return std::string(below(3), ' ') + "C:\\" + oddText(); }
    std::string folder() {
        return oneOf(
            {"D:\\in", "D:\\in\\",
             "D:\\donn\xE9" // NOLINT(bugprone-suspicious-missing-comma): an e follows the byte
             "es",
             "D:\\missing", "", "  ", "D:\\out "});
    }
    std::string file() {
        return oneOf({"D:\\a.txt", " D:\\a.txt ", "D:\\no.txt", "", "D:\\\xE9.cfg"});
    }
};

class INIRoundTrip : public testing::TestWithParam<int> {
  protected:
    INIRoundTrip() {
        world.makeDrive('D');
        for (const char* folder : {"C:\\app", "D:\\in", "D:\\out",
                                   "D:\\donn\xE9"
                                   "es"}) {
            world.makeFolder(folder);
        }
        world.write("D:\\a.txt", "");
        world.write("D:\\\xE9.cfg", "");
    }

    // What must come back of `saved` when it is read into `before`, told apart from the reader.
    BatchDefinition expectedAfterReading(const BatchDefinition& saved,
                                         const BatchDefinition& before) {
        BatchDefinition expected = saved;
        expected.bSettingsChanged = false;
        expected.sMPExecutable = trim(saved.sMPExecutable);
        expected.sCNSExecutable = trim(saved.sCNSExecutable);
        expected.sCommandLineLogFile = trim(saved.sCommandLineLogFile);
        expected.sInputFolder = FolderExists(world.files(), trim(saved.sInputFolder))
                                    ? std::string(trim(saved.sInputFolder))
                                    : before.sInputFolder;
        expectFile(expected.bUseAliases, expected.sAliasesFile, before.bUseAliases,
                   before.sAliasesFile);
        expectFile(expected.bUseConfigFile, expected.sConfigFile, before.bUseConfigFile,
                   before.sConfigFile);
        BatchDefinition defaults;
        LoadDefaultGridSettings(defaults);
        for (std::size_t row = 0; row < expected.MPOutputs.size(); ++row) {
            expectRow(expected.MPOutputs.at(row), defaults.MPOutputs.at(row));
        }
        for (std::size_t row = 0; row < expected.CNSOutputs.size(); ++row) {
            expectRow(expected.CNSOutputs.at(row), defaults.CNSOutputs.at(row));
        }
        return expected;
    }

    void expectFile(int& use, std::string& name, int useBefore, const std::string& nameBefore) {
        if (use != checked) { // not in the file: nothing changes
            use = useBefore;
            name = nameBefore;
        } else if (FileExists(world.files(), trim(name))) {
            name = std::string(trim(name));
        } else {
            use = 0;
            name = nameBefore;
        }
    }

    void expectRow(OutputDefinition& row, const OutputDefinition& byDefault) {
        if (!row.bBuild) { // not in the file at all
            row = byDefault;
            row.bBuild = false;
        } else if (FolderExists(world.files(), row.sOutputFolder) &&
                   FolderExists(world.files(), trim(row.sOutputFolder))) {
            row.sOutputFolder = std::string(trim(row.sOutputFolder));
        } else { // its extension only
            row.bBuild = false;
            row.sOutputFolder = "";
        }
    }

    HostedWorld world;
    ScriptedDesktop desktop;
};

constexpr int blocks = 10;
constexpr int definitionsPerBlock = 100;

TEST_P(INIRoundTrip, What_the_file_stores_comes_back_and_what_it_leaves_out_does_not) {
    for (int i = 0; i < definitionsPerBlock; ++i) {
        const auto seed = static_cast<unsigned>(GetParam() * definitionsPerBlock + i);
        SCOPED_TRACE(seed);
        BatchDefinition saved = Generator(seed).definition();
        BatchDefinition readBack = Generator(seed + 1'000'000).definition();
        const BatchDefinition expected = expectedAfterReading(saved, readBack);

        SaveINIFile(saved, world.files(), desktop);
        readBack.bSettingsChanged = true;
        ASSERT_TRUE(ReadINIFile(readBack, world.files(), desktop, [] {}));

        ASSERT_EQ(readBack, expected);
    }
    EXPECT_THAT(desktop.messages, testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Thousand, INIRoundTrip, testing::Range(0, blocks));

TEST_F(INIRoundTrip, A_definition_whose_products_are_all_on_comes_back_exactly) {
    BatchDefinition saved;
    MyDefaultSettings(saved);
    saved.sINIFile = "C:\\batch.ini";
    saved.sInputFolder = "D:\\in";
    for (OutputDefinition& row : saved.MPOutputs) {
        row.bBuild = true;
        row.sOutputFolder = "D:\\out";
    }
    for (OutputDefinition& row : saved.CNSOutputs) {
        row.bBuild = true;
        row.sOutputFolder = "D:\\in";
    }
    SaveINIFile(saved, world.files(), desktop);
    BatchDefinition readBack;
    readBack.sINIFile = saved.sINIFile;
    ASSERT_TRUE(ReadINIFile(readBack, world.files(), desktop, [] {}));
    EXPECT_EQ(readBack, saved);
}

TEST_F(INIRoundTrip, A_product_with_a_missing_folder_comes_back_off) {
    BatchDefinition saved;
    MyDefaultSettings(saved);
    saved.sINIFile = "C:\\batch.ini";
    output(saved, "Xml").sOutputFolder = "D:\\missing";
    output(saved, "Xml").sExtension = ".mine";
    SaveINIFile(saved, world.files(), desktop);
    BatchDefinition readBack;
    readBack.sINIFile = saved.sINIFile;
    ASSERT_TRUE(ReadINIFile(readBack, world.files(), desktop, [] {}));
    EXPECT_EQ(
        output(readBack, "Xml"),
        (OutputDefinition{
            .bBuild = false, .sFileType = "Xml", .sExtension = ".mine", .sOutputFolder = ""}));
}

} // namespace
} // namespace tarnwick
