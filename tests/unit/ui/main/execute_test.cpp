// Execute, Cancel and Close, and what the user may do while the tools run.
#include "unit/ui/main/run_ready_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

struct Execute : RunReadyWorld {};

TEST_F(Execute, A_click_runs_both_tools_over_all_selected_records) {
    form.userClicked(form.cmdOK);
    EXPECT_THAT(interpreter.started, SizeIs(4));
    EXPECT_EQ(interpreter.started.at(0).path, batch);
    EXPECT_EQ(interpreter.started.at(0).content,
              "@echo off\r\nD:\r\ncd \\in\r\n@echo on\r\n\r\n"
              "call \"C:\\App\\cns.exe\" -l en -o \"D:\\cns\\a.cns\" \"D:\\in\\a.met\"\r\n"
              "echo Done! > C:\\Temp\\MPdone.tmp\r\n");
    EXPECT_EQ(status(), "Done!");
    EXPECT_THAT(desktop.messages, IsEmpty());
    expectIdle();
}

TEST_F(Execute, While_a_tool_runs_the_window_shows_it) {
    bool seen = false;
    whileRunning([&] {
        seen = true;
        EXPECT_EQ(form.cmdCancel.caption(), "Cancel");
        EXPECT_TRUE(form.cmdOK.enabled());
        EXPECT_TRUE(form.ProgressBar1.visible());
        EXPECT_EQ(form.ProgressBar1.value(), 0);
        EXPECT_EQ(form.mousePointer(), MousePointer::Busy);
        EXPECT_EQ(status(), "CNS - Processing a.met...");
    });
    form.userClicked(form.cmdOK);
    EXPECT_TRUE(seen);
    expectIdle();
}

TEST_F(Execute, Progress_is_shown_record_by_record) {
    form.lstSelected.setItems({"a.met", "b.met", "c.txt"});
    std::vector<int> shown;
    events.handler = [&] {
        if (shown.empty() || shown.back() != form.ProgressBar1.value()) {
            shown.push_back(form.ProgressBar1.value());
        }
    };
    form.userClicked(form.cmdOK);
    EXPECT_THAT(shown, ElementsAre(0, 33, 67, 100));
    EXPECT_EQ(form.ProgressBar1.value(), 0);
}

TEST_F(Execute, An_edit_that_is_going_on_in_a_grid_counts) {
    click(form.grdFiles, 1, 2);
    form.txtEdit.userTyped(".report");
    form.userClicked(form.cmdOK);
    EXPECT_THAT(interpreter.started.at(1).content, HasSubstr("\"D:\\out\\a.report\""));
}

TEST_F(Execute, A_missing_tool_can_be_corrected) {
    world.write(R"(D:\mp.exe)", "");
    inOptions = [](BatchDefinition& definition) { definition.sMPExecutable = R"(D:\mp.exe)"; };
    BatchDefinition definition = form.definition();
    definition.sMPExecutable = R"(D:\gone.exe)";
    form.showDefinition(definition);
    form.userClicked(form.cmdOK);
    EXPECT_EQ(optionsShown, 1);
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("The MP executable file \"D:\\gone.exe\" does not exist.\r\n"
                                    "Please specify the MP executable location.")));
    EXPECT_THAT(interpreter.started.at(1).content, HasSubstr("call \"D:\\mp.exe\""));
    EXPECT_EQ(status(), "Done!");
}

TEST_F(Execute, A_tool_that_stays_missing_keeps_the_run_from_starting) {
    BatchDefinition definition = form.definition();
    definition.sCNSExecutable = R"(D:\gone.exe)";
    form.showDefinition(definition);
    form.userClicked(form.cmdOK);
    EXPECT_THAT(desktop.messages,
                ElementsAre(warning("The CNS executable file \"D:\\gone.exe\" does not exist.\r\n"
                                    "Please specify the CNS executable location."),
                            warning("The CNS executable file \"D:\\gone.exe\" does not exist.")));
    EXPECT_TRUE(interpreter.started.empty());
    expectIdle();
}

TEST_F(Execute, A_missing_configuration_file_is_shown_in_its_field) {
    form.userClicked(form.chkCFG);
    type(form.txtCFG, R"(D:\plain.cfg)");
    leave();
    ASSERT_TRUE(form.cmdOK.enabled());
    world.files().remove(R"(D:\plain.cfg)");
    form.userClicked(form.cmdOK);
    expectRefused("The configuration file \"D:\\plain.cfg\" does not exist.");
    EXPECT_EQ(form.focused(), &form.txtCFG);
    EXPECT_EQ(form.txtCFG.selStart(), 0);
    EXPECT_EQ(form.txtCFG.selLength(), 12);
}

TEST_F(Execute, A_bad_MP_output_folder_is_opened_in_its_editor) {
    click(form.grdFiles, 3, 0);
    form.userClicked(form.cmdOK);
    expectRefused("Please specify a folder for the output \"Html\" file.");
    EXPECT_EQ(form.grdFiles.row(), 3);
    EXPECT_EQ(form.grdFiles.column(), 3);
    EXPECT_TRUE(form.txtEdit.visible());
    EXPECT_TRUE(form.cmdEdit.visible());
    EXPECT_EQ(form.focused(), &form.txtEdit);
}

TEST_F(Execute, A_bad_CNS_output_folder_is_opened_in_its_editor) {
    click(form.grdCNS, 2, 0);
    form.grdCNS.setText(2, 3, R"(D:\none)");
    form.userClicked(form.cmdOK);
    expectRefused("The \"D:\\none\" folder does not exist.\r\n"
                  "Please specify a valid folder for the output \"Leftovers\" file.");
    EXPECT_EQ(form.grdCNS.row(), 2);
    EXPECT_EQ(form.grdCNS.column(), 3);
    EXPECT_TRUE(form.txtEditCNS.visible());
    EXPECT_EQ(form.focused(), &form.txtEditCNS);
    EXPECT_EQ(form.txtEditCNS.text(), R"(D:\none)");
}

TEST_F(Execute, Where_the_configuration_file_names_the_outputs_no_folder_is_asked_for) {
    form.userClicked(form.chkCFG);
    type(form.txtCFG, R"(D:\names.cfg)");
    leave();
    ASSERT_TRUE(form.definition().bCfgNamesOutput);
    form.userClicked(form.cmdOK);
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_THAT(interpreter.started.at(1).content,
                HasSubstr("call \"C:\\App\\mp.exe\" -c \"D:\\names.cfg\" -l en \"a.met\"\r\n"));
}

TEST_F(Execute, A_second_click_during_the_run_does_nothing) {
    std::size_t startedAtClick = 0;
    whileRunning([&] {
        form.userClicked(form.cmdOK);
        startedAtClick = interpreter.started.size();
        EXPECT_EQ(form.cmdCancel.caption(), "Cancel");
    });
    form.userClicked(form.cmdOK);
    EXPECT_EQ(startedAtClick, 1U);
    EXPECT_THAT(interpreter.started, SizeIs(4));
    EXPECT_EQ(status(), "Done!");
    // And there is a next run.
    form.userClicked(form.cmdOK);
    EXPECT_THAT(interpreter.started, SizeIs(8));
}

TEST_F(Execute, Cancel_by_the_mouse_stops_it_and_takes_the_focus_and_with_it_the_status) {
    toolsEnd = false;
    whileRunning([&] { form.userClicked(form.cmdCancel); });
    form.userClicked(form.cmdOK);
    EXPECT_THAT(interpreter.started, SizeIs(1));
    EXPECT_TRUE(form.visible());
    EXPECT_EQ(status(), "");
    expectIdle();
}

TEST_F(Execute, Cancel_by_Escape_stops_it_and_leaves_the_status_as_it_was) {
    toolsEnd = false;
    whileRunning([&] { form.userPressedEscape(); });
    form.userClicked(form.cmdOK);
    EXPECT_TRUE(form.visible());
    EXPECT_EQ(status(), "CNS - Processing a.met...");
    expectIdle();
    // From now on it is Close again, which Escape does not press.
    form.userPressedEscape();
    EXPECT_TRUE(form.visible());
}

TEST_F(Execute, A_cancel_of_one_run_is_not_one_of_the_next) {
    toolsEnd = false;
    whileRunning([&] { form.userPressedEscape(); });
    form.userClicked(form.cmdOK);
    toolsEnd = true;
    form.userClicked(form.cmdOK);
    EXPECT_THAT(interpreter.started, SizeIs(5));
    EXPECT_EQ(status(), "Done!");
}

TEST_F(Execute, A_view_that_fails_during_a_run_ends_the_run_with_the_window) {
    whileRunning([&] {
        EXPECT_TRUE(form.viewFailed(std::make_exception_ptr(RunTimeError(ErrorNumber::DeviceIO))));
    });
    form.userClicked(form.cmdOK);
    EXPECT_THAT(interpreter.started, SizeIs(1));
    EXPECT_FALSE(form.visible());
}

// The field names the new folder, and the list still holds the old one's files.
TEST_F(Execute, While_a_folder_is_being_listed_nothing_runs_and_no_batch_file_is_written) {
    world.write(R"(D:\empty\other.met)", "");
    int listings = 0;
    events.handler = [&] {
        if (listings++ == 0) {
            form.cmdOK.userClicked();
            form.cmdCreateBatFile.userClicked();
        }
    };
    type(form.txtInput, R"(D:\empty)");
    form.userClicked(form.cmdOK);
    EXPECT_EQ(listings, 1);
    EXPECT_THAT(interpreter.started, SizeIs(0));
    EXPECT_THAT(desktop.fileDialogs, SizeIs(0));
    EXPECT_TRUE(form.lstSelected.empty());
    EXPECT_THAT(desktop.messages, SizeIs(0));
}

TEST_F(Execute, Escape_during_a_run_ends_an_open_edit_first) {
    whileRunning([&] {
        click(form.grdFiles, 1, 2);
        form.userPressedEscape();
    });
    form.userClicked(form.cmdOK);
    EXPECT_THAT(interpreter.started, SizeIs(4));
}

TEST_F(Execute, Escape_without_an_open_edit_cancels_the_run) {
    whileRunning([&] {
        click(form.grdFiles, 1, 2);
        form.userPressedEscape();
        form.userPressedEscape();
    });
    form.userClicked(form.cmdOK);
    EXPECT_THAT(interpreter.started, SizeIs(1));
    EXPECT_EQ(form.cmdCancel.caption(), "Close");
}

TEST_F(Execute, Records_taken_off_the_list_during_a_run_are_processed_all_the_same) {
    form.EnableMove();
    whileRunning([&] {
        form.userClicked(form.cmdSelectFiles[3]);
        EXPECT_TRUE(form.lstSelected.empty());
    });
    form.userClicked(form.cmdOK);
    EXPECT_THAT(interpreter.started, SizeIs(4));
    EXPECT_EQ(status(), "Done!");
    EXPECT_FALSE(form.cmdOK.enabled());
}

TEST_F(Execute, Options_changed_during_a_run_count_for_the_next_one) {
    inOptions = [this](BatchDefinition& definition) {
        world.write(R"(D:\new.exe)", "");
        definition.sMPExecutable = R"(D:\new.exe)";
    };
    whileRunning([&] { form.mnuOptions.userClicked(); });
    form.userClicked(form.cmdOK);
    EXPECT_THAT(interpreter.started.at(3).content, HasSubstr("call \"C:\\App\\mp.exe\""));
    form.userClicked(form.cmdOK);
    EXPECT_THAT(interpreter.started.at(5).content, HasSubstr("call \"D:\\new.exe\""));
}

TEST_F(Execute, Another_definition_opened_during_a_run_leaves_the_run_alone) {
    world.write(R"(D:\other.ini)", "Process MP=0\r\n");
    desktop.chosenFiles = {R"(D:\other.ini)"};
    whileRunning([&] { form.mnuOpenINI.userClicked(); });
    form.userClicked(form.cmdOK);
    EXPECT_THAT(interpreter.started, SizeIs(4));
    EXPECT_FALSE(form.chkMP.ticked());
    expectIdle();
}

TEST_F(Execute, A_log_in_a_missing_folder_switches_the_windows_logging_off) {
    BatchDefinition definition = form.definition();
    definition.bCommandLineLogging = true;
    definition.sCommandLineLogFile = R"(D:\nowhere\run.log)";
    form.showDefinition(definition);
    form.userClicked(form.cmdOK);
    EXPECT_FALSE(form.definition().bCommandLineLogging);
    EXPECT_FALSE(changed());
    EXPECT_EQ(status(), "Done!");
}

TEST_F(Execute, A_log_is_written_beside_the_records) {
    BatchDefinition definition = form.definition();
    definition.bCommandLineLogging = true;
    definition.sCommandLineLogFile = "run.log";
    form.showDefinition(definition);
    form.userClicked(form.cmdOK);
    EXPECT_THAT(world.read(R"(D:\in\run.log)"),
                testing::StartsWith("call \"C:\\App\\cns.exe\" -l en "));
    EXPECT_TRUE(form.definition().bCommandLineLogging);
}

// The window's end during a run.

TEST_F(Execute, Closing_the_window_ends_the_run_and_leaves_nothing) {
    toolsEnd = false;
    whileRunning([&] {
        form.userClosed();
        EXPECT_FALSE(world.exists(batch)); // the program may be gone the next moment
    });
    form.userClicked(form.cmdOK);
    EXPECT_FALSE(form.loaded());
    EXPECT_FALSE(form.visible());
    EXPECT_THAT(interpreter.started, SizeIs(1));
    EXPECT_THAT(desktop.messages, IsEmpty());
    expectIdle();
}

TEST_F(Execute, Exit_of_the_menu_ends_the_run_as_well) {
    toolsEnd = false;
    whileRunning([&] { form.mnuExit.userClicked(); });
    form.userClicked(form.cmdOK);
    EXPECT_FALSE(form.loaded());
    EXPECT_THAT(interpreter.started, SizeIs(1));
    expectIdle();
}

TEST_F(Execute, Closing_asks_about_changes_before_the_run_is_cancelled) {
    form.userClicked(form.chkAliases);
    form.userClicked(form.chkAliases);
    desktop.answers = {MessageAnswer::Yes};
    bool asked = false;
    desktop.whileShown = [&](const Message&) {
        asked = true;
        EXPECT_TRUE(world.exists(batch));
    };
    toolsEnd = false;
    whileRunning([&] { form.userClosed(); });
    form.userClicked(form.cmdOK);
    EXPECT_TRUE(asked);
    EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni)));
    EXPECT_TRUE(world.exists(defaultIni));
    EXPECT_FALSE(form.loaded());
    expectIdle();
}

TEST_F(Execute, A_close_that_fails_ends_the_run_all_the_same) {
    toolsEnd = false;
    whileRunning([&] {
        const BrokenView broken(form.StatusBar1);
        form.userClosed();
    });
    form.userClicked(form.cmdOK);
    EXPECT_THAT(desktop.messages, SizeIs(1));
    EXPECT_FALSE(form.loaded());
    expectIdle();
}

TEST_F(Execute, What_fails_in_the_run_is_reported_once_and_the_window_is_idle_again) {
    whileRunning([&] {
        files.failAlways(FileOperation::CreateNew, RunTimeError(ErrorNumber::PathFileAccess));
    });
    form.userClicked(form.cmdOK);
    EXPECT_THAT(desktop.messages, ElementsAre(report("Private Sub ProcessAndWait()", 75,
                                                     describe(ErrorNumber::PathFileAccess))));
    files.heal();
    expectIdle();
    form.userClicked(form.cmdOK);
    EXPECT_EQ(status(), "Done!");
}

TEST_F(Execute, Closing_while_nothing_runs_is_what_Close_does) {
    form.userClicked(form.cmdCancel);
    EXPECT_FALSE(form.loaded());
}

TEST_F(Execute, Only_the_caption_tells_Cancel_from_Close_in_any_case) {
    toolsEnd = false;
    whileRunning([&] {
        form.cmdCancel.setCaption("CANCEL");
        form.userPressedEscape();
    });
    form.userClicked(form.cmdOK);
    EXPECT_TRUE(form.visible());
    EXPECT_THAT(interpreter.started, SizeIs(1));
}

} // namespace
} // namespace tarnwick
