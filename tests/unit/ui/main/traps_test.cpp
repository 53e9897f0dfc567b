// Every procedure of the window traps its own errors and reports them under its declaration line.
#include "unit/ui/main/main_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;

Message deviceError(std::string_view procedure) {
    return report(procedure, 57, describe(ErrorNumber::DeviceIO));
}

struct Traps : MainWorld {
    Traps() {
        form.show();
        form.userClicked(form.chkCNS);
        form.userClicked(form.chkAliases);
        form.userClicked(form.chkCFG);
        listRecords();
        forgetChanges();
        form.mnuSaveINI.userClicked();
    }

    // With `shown` unable to show anything, `event` is reported under `procedure`, and nothing
    // else.
    void expectReport(Control& shown, std::string_view procedure,
                      const std::function<void()>& event) {
        desktop.messages.clear();
        {
            const BrokenView broken(shown);
            event();
        }
        EXPECT_THAT(desktop.messages, ElementsAre(deviceError(procedure))) << procedure;
    }
    // The same where the procedure begins by clearing the status.
    void expectReport(std::string_view procedure, const std::function<void()>& event) {
        form.StatusBar1.setPanelText(1, "Done!");
        expectReport(form.StatusBar1, procedure, event);
    }
    void expectProcedure(std::string_view name, const std::function<void()>& event) {
        expectReport("Private Sub " + std::string(name), event);
    }
};

TEST_F(Traps, The_check_boxes) {
    expectProcedure("chkCNS_Click()", form.chkCNS.Click);
    expectProcedure("chkMP_Click()", form.chkMP.Click);
    expectProcedure("chkAliases_Click()", form.chkAliases.Click);
    expectProcedure("chkCFG_Click()", form.chkCFG.Click);
}

TEST_F(Traps, The_buttons_two_of_them_under_older_names) {
    expectProcedure("cmdAliases_Click()", form.cmdAliases.Click);
    expectProcedure("cmdMPEXE_Click()", form.cmdCFG.Click);
    expectProcedure("cmdCNS_Click()", form.cmdCNS.Click);
    expectProcedure("cmdEditFolder_Click()", form.cmdOutputFolder.Click);
    expectProcedure("cmdInput_Click()", form.cmdInput.Click);
    expectProcedure("cmdOK_Click()", form.cmdOK.Click);
    expectProcedure("cmdCreateBatFile_Click()", form.cmdCreateBatFile.Click);
    expectProcedure("cmdSelectFiles_Click(Index As Integer)", form.cmdSelectFiles[1].Click);
}

TEST_F(Traps, The_text_fields) {
    expectProcedure("txtInput_Change()", form.txtInput.Change);
    expectProcedure("txtCNS_Change()", form.txtCNS.Change);
    expectProcedure("txtAliases_Change()", form.txtAliases.Change);
    expectProcedure("txtCFG_Change()", form.txtCFG.Change);
    form.txtCNS.setText(" x ");
    expectReport(form.txtCNS, "Private Sub txtCNS_LostFocus()", form.txtCNS.LostFocus);
    form.txtAliases.setText(" x ");
    expectReport(form.txtAliases, "Private Sub txtAliases_LostFocus()", form.txtAliases.LostFocus);
    form.txtCFG.setText(" x ");
    expectReport(form.txtCFG, "Private Sub txtCFG_LostFocus()", form.txtCFG.LostFocus);
    type(form.txtInput, " x ");
    expectReport(form.txtInput, "Private Sub txtInput_LostFocus()", form.txtInput.LostFocus);
    expectProcedure("txtInExt_LostFocus()", form.txtInExt.LostFocus);
}

TEST_F(Traps, The_key_of_the_eight) {
    form.txtCNSExt.select(2, 0);
    desktop.messages.clear();
    {
        const BrokenView broken(form.txtCNSExt);
        form.txtCNSExt.KeyUp(56);
    }
    EXPECT_THAT(desktop.messages,
                ElementsAre(plain("Please do not use the wildcard \"*\" character."),
                            deviceError("Private Sub txtCNSExt_KeyUp")));
}

TEST_F(Traps, Getting_the_focus) {
    for (Control* const control : form.controls()) {
        if (!control->isFocusable() || !control->GotFocus) {
            continue;
        }
        const bool move = control->name().starts_with("cmdSelectFiles");
        expectProcedure(move ? "cmdSelectFiles_GotFocus(Index As Integer)"
                             : control->name() + "_GotFocus()",
                        control->GotFocus);
    }
}

TEST_F(Traps, The_lists) {
    expectProcedure("lstAvailable_Click()", form.lstAvailable.Click);
    expectProcedure("lstAvailable_DblClick()", form.lstAvailable.DblClick);
    expectProcedure("lstSelected_Click()", form.lstSelected.Click);
    expectProcedure("lstSelected_DblClick()", form.lstSelected.DblClick);
    form.lstAvailable.setItems({"z"});
    expectReport(form.lstAvailable, "Private Sub LoadFiles()", [this] {
        form.txtInput.userTyped("");
        form.txtInput.LostFocus();
    });
    form.lstAvailable.setHorizontalExtent(1);
    expectReport(form.lstAvailable, "Private Sub UpdateListBoxScrollBars()",
                 form.lstAvailable.Remeasured);
    form.lstAvailable.setItems({});
    form.cmdSelectFiles[1].setEnabled(true);
    expectReport(form.cmdSelectFiles[1], "Private Sub EnableMove()", [this] { form.EnableMove(); });
    form.lstSelected.setItems({"a.met"});
    form.userClicked(form.chkCNS);
    form.userClicked(form.chkCFG);
    form.cmdOK.setEnabled(false);
    expectReport(form.cmdOK, "Private Sub EnableOK()", [this] { form.EnableOK(); });
}

TEST_F(Traps, The_menus) {
    expectProcedure("mnuNewINI_Click()", form.mnuNewINI.Click);
    expectProcedure("mnuOpenINI_Click()", form.mnuOpenINI.Click);
    expectProcedure("mnuSaveINI_Click()", form.mnuSaveINI.Click);
    expectProcedure("mnuSaveAsINI_Click()", form.mnuSaveAsINI.Click);
    expectProcedure("mnuOptions_Click()", form.mnuOptions.Click);
    expectProcedure("mnuAbout_Click()", form.mnuAbout.Click);
    form.cmdOK.setEnabled(true);
    // What fails inside a procedure of its own is that procedure's to report.
    expectReport(form.cmdOK, "Private Sub EnableOK()", form.cboLanguage.Change);
}

TEST_F(Traps, The_window) {
    form.StatusBar1.setPanelWidth(2, 1);
    expectReport(form.StatusBar1, "Private Sub Form_Resize()", form.Resize);
    form.StatusBar1.setPanelText(1, "Done!");
    expectReport(form.StatusBar1, "Private Sub Form_Unload(Cancel As Integer)", form.Unload);
}

// A screen that fails as a whole.
class NoScreen : public View {
  public:
    void changed(Property /*property*/) override { throw RunTimeError(ErrorNumber::DeviceIO); }
};

TEST_F(Traps, Leaving_the_program) {
    NoScreen none;
    form.attach(none);
    desktop.messages.clear();
    form.mnuExit.Click();
    EXPECT_THAT(desktop.messages, ElementsAre(deviceError("Private Sub mnuExit_Click()")));
    form.detach();
}

TEST_F(Traps, The_definition) {
    form.cboLanguage.setText("French");
    desktop.chosenFiles = {R"(D:\new.ini)"};
    desktop.answers = {MessageAnswer::No};
    expectReport(form.cboLanguage, "Private Sub MyDefaultSettings()", form.mnuNewINI.Click);
    click(form.grdCNS, 2, 0);
    desktop.chosenFiles = {R"(D:\new.ini)"};
    desktop.answers = {MessageAnswer::No};
    expectReport(form.grdCNS, "Private Sub LoadDefaultGridSettings", [this] {
        desktop.answers = {MessageAnswer::No};
        form.mnuNewINI.Click();
        std::erase_if(desktop.messages, [](const Message& message) {
            return message.buttons == MessageButtons::YesNo;
        });
    });
    desktop.chosenFiles = {R"(D:\new.ini)"};
    files.failAlways(FileOperation::OpenForReading, RunTimeError(ErrorNumber::DeviceIO));
    desktop.messages.clear();
    form.mnuOpenINI.Click();
    EXPECT_THAT(desktop.messages, ElementsAre(deviceError("Public Sub ReadINIFile()")));
}

TEST_F(Traps, Failing_dialogs_are_reported_but_a_cancelled_one_is_not) {
    desktop.chosenFiles = {std::nullopt};
    form.mnuOpenINI.userClicked();
    EXPECT_TRUE(desktop.messages.empty());
    settings.unwritable = true;
    form.mnuSaveINI.userClicked();
    EXPECT_THAT(desktop.messages, ElementsAre(report("Private Sub mnuSaveINI_Click()", 75,
                                                     describe(ErrorNumber::PathFileAccess))));
}

// A desktop that opens nothing.
class HelplessDesktop : public ScriptedDesktop {
  public:
    std::int32_t openDocument(std::string_view, std::string_view) override {
        throw RunTimeError(ErrorNumber::DeviceIO);
    }
};

TEST_F(Traps, What_opens_a_document_is_reported_by_the_one_who_opens_it) {
    HelplessDesktop helpless;
    MainServices helplessServices{.files = files,
                                  .desktop = helpless,
                                  .interpreter = interpreter,
                                  .events = events,
                                  .clock = clock,
                                  .process = process,
                                  .settings = settings};
    frmMain window(helplessServices);
    window.show();
    world.write(R"(C:\App\Tarnwick.chm)", "");
    for (MenuItem* const item : {&window.mnuHelpTarnwick, &window.mnuHelpCNS, &window.mnuHelpMP}) {
        helpless.messages.clear();
        item->userClicked();
        ASSERT_EQ(helpless.messages.size(), 1U) << item->name();
        EXPECT_THAT(helpless.messages.front().text,
                    testing::HasSubstr("modMain - Function StartDoc(DocName As String) As Long"));
    }
}

// Whose bodies touch nothing that can fail but a message.
TEST_F(Traps, The_help_file_that_is_not_there) {
    desktop.whileShown = [this](const Message&) {
        desktop.whileShown = nullptr;
        throw RunTimeError(ErrorNumber::DeviceIO);
    };
    desktop.messages.clear();
    form.mnuHelpTarnwick.userClicked();
    EXPECT_EQ(desktop.messages.back(), deviceError("Private Sub mnuHelpTarnwick_Click()"));
}

TEST_F(Traps, Saving_is_reported_by_itself_from_New_and_from_Save_As) {
    files.failAlways(FileOperation::Create, RunTimeError(ErrorNumber::DeviceIO));
    files.failAlways(FileOperation::CreateNew, RunTimeError(ErrorNumber::DeviceIO));
    for (MenuItem* const command : {&form.mnuNewINI, &form.mnuSaveAsINI}) {
        desktop.messages.clear();
        desktop.chosenFiles = {R"(D:\new.ini)"};
        command->userClicked();
        EXPECT_THAT(desktop.messages, ElementsAre(deviceError("Public Sub SaveINIFile()")))
            << command->name();
    }
}

struct GridTraps : Traps {
    // `name` is what the grid is called, `suffix` what its private helpers end in.
    void expectAll(Grid& grid, TextBox& editor, Button& button, const std::string& name,
                   const std::string& suffix) {
        const auto endEdit = [&] { editor.userPressedKey(Key::escape); };
        const auto ready = [&](int column) {
            form.userMovedFocus(form.chkMP);
            click(grid, 1, column);
            endEdit();
        };
        if (!grid.cell(1, 0).showsTick()) {
            click(grid, 1, 0);
        }
        grid.setText(1, 2, ".old");
        expectProcedure(name + "_Click()", grid.Click);
        expectProcedure(name + "_LeaveCell()", grid.LeaveCell);
        ready(2);
        expectReport(editor, "Private Sub pEditGrid" + suffix, [&] { grid.userTyped('x'); });
        endEdit();
        editor.setVisible(false);
        ready(2);
        grid.userTyped('x');
        editor.userTyped(".new");
        expectReport(grid, "Private Sub pSetCellValue" + suffix + "()", [&] {
            form.StatusBar1.setPanelText(1, "");
            (suffix.empty() ? form.pSetCellValue() : form.pSetCellValueCNS());
        });
        endEdit();
        ready(1);
        expectReport(grid, "Private Sub grdFiles_KeyDown", [&] { grid.KeyDown(13); });
        ready(1);
        expectReport(grid, "Private Sub " + name + "_MouseDown", [&] { grid.MouseDown(20, 400); });
        grid.setCurrent({.row = 1, .column = 0});
        expectProcedure(name + "_KeyPress", [&] { grid.KeyPress(32); });
        grid.setCurrent({.row = 1, .column = 2});
        grid.userTyped('x');
        expectReport(editor, "Private Sub txtEdit" + suffix + "_KeyDown",
                     [&] { editor.KeyDown(Key::escape); });
        pickedFolders = {R"(D:\out)"};
        editor.setText("");
        expectReport(editor, "Private Sub cmdEdit" + suffix + "_Click()", button.Click);
    }
};

TEST_F(GridTraps, The_grid_of_MP) {
    expectAll(form.grdFiles, form.txtEdit, form.cmdEdit, "grdFiles", "");
}

TEST_F(GridTraps, The_grid_of_CNS_whose_keys_go_by_the_other_ones_name) {
    expectAll(form.grdCNS, form.txtEditCNS, form.cmdEditCNS, "grdCNS", "CNS");
}

} // namespace
} // namespace tarnwick
