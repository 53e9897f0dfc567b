// The window holds the definition: what is shown is what is given back.
#include "support/definition_generator.hpp"
#include "support/outputs.hpp"
#include "unit/ui/main/main_world.hpp"

namespace tarnwick {
namespace {

struct Definition : MainWorld {};
struct ShownDefinition : MainWorld, testing::WithParamInterface<unsigned> {};

TEST_P(ShownDefinition, Comes_back_as_it_was) {
    form.show();
    DefinitionGenerator generator(GetParam());
    for (int i = 0; i < 100; ++i) {
        const BatchDefinition given = generator.definition();
        form.showDefinition(given);
        BatchDefinition expected = given;
        if (given.bUseConfigFile != 1) { // a file that is not used names nothing
            expected.bCfgNamesInput = false;
            expected.bCfgNamesOutput = false;
        }
        if (expected.bCfgNamesOutput && given.iProcessCNS == 1) { // it decides about these
            expected.sCNSOutputFolder.clear();
            expected.sCNSOutputExtension.clear();
        }
        ASSERT_EQ(form.definition(), expected);
        ASSERT_EQ(form.definition(), expected);
        for (int row = 1; row <= 7; ++row) {
            const OutputDefinition& output = given.MPOutputs.at(static_cast<std::size_t>(row) - 1);
            ASSERT_EQ(form.grdFiles.cell(row, 0).showsTick(), output.bBuild);
            ASSERT_EQ(form.grdFiles.cell(row, 3).back,
                      Colour(output.bBuild ? SystemColour::Window : SystemColour::ButtonFace));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Generated, ShownDefinition, testing::Range(1U, 6U));

TEST_F(Definition, What_the_user_does_shows_in_the_definition) {
    form.show();
    form.userClicked(form.chkCNS);
    form.userClicked(form.chkAliases);
    type(form.txtAliases, R"(D:\aliases.txt)");
    type(form.txtCNS, R"(D:\cns)");
    type(form.txtCNSExt, ".pre");
    form.userClicked(form.chkCFG);
    type(form.txtCFG, R"(D:\plain.cfg)");
    listRecords("*.met");
    form.userClicked(form.chkfixdoc);
    form.cboLanguage.userPicked(2);
    click(form.grdCNS, 2, 0);
    click(form.grdCNS, 2, 3);
    form.txtEditCNS.userTyped(R"(D:\out)");
    form.userMovedFocus(form.lstAvailable);

    BatchDefinition expected;
    MyDefaultSettings(expected);
    expected.sAppFolder = "C:\\App\\";
    expected.sTempFolder = "C:\\Temp\\";
    expected.sMPExecutable = "C:\\App\\mp.exe";
    expected.sCNSExecutable = "C:\\App\\cns.exe";
    expected.sINIFile = defaultIni;
    expected.bSettingsChanged = true;
    expected.sLanguage = "Catalan";
    expected.iFixDoc = 1;
    expected.iProcessCNS = 1;
    expected.sInputFolder = R"(D:\in)";
    expected.sInputExtensions = "*.met";
    expected.sCNSOutputFolder = R"(D:\cns)";
    expected.sCNSOutputExtension = ".pre";
    expected.bUseAliases = 1;
    expected.sAliasesFile = R"(D:\aliases.txt)";
    expected.bUseConfigFile = 1;
    expected.sConfigFile = R"(D:\plain.cfg)";
    output(expected, "Leftovers").bBuild = true;
    output(expected, "Leftovers").sOutputFolder = R"(D:\out)";
    EXPECT_EQ(form.definition(), expected);
}

} // namespace
} // namespace tarnwick
