#include "support/ui/scripted_presenter.hpp"
#include "ui/dialogs/frm_display_command_line_help.hpp"

#include <gtest/gtest.h>

#include <string>

namespace tarnwick {
namespace {

struct CommandLineHelp : testing::Test {
    frmDisplayCommandLineHelp form;

    void SetUp() override {
        form.cmdOK.setBounds({.left = 1, .top = 2, .width = 1200, .height = 345});
        form.measured({.width = 9000, .height = 5000}, {.width = 15360, .height = 11520});
        form.show();
    }
};

TEST_F(CommandLineHelp, Its_text_is_given_to_the_byte) {
    EXPECT_EQ(
        form.txtHelp.text(),
        "Syntax: Tarnwick.exe -I INI_file [-F input_folder] [-e input_file_extensions] [-n] \r\n"
        "\r\n"
        "Options:\r\n"
        "  -I  INI_file" +
            std::string(16, ' ') +
            "Required, INI file\r\n"
            "\r\n"
            "  -F  input_folder" +
            std::string(12, ' ') +
            "Optional, location of input files\r\n"
            "\r\n"
            "  -e  input_file_extensions   Optional, input file extensions (Example: "
            "*.sgm;*.txt)\r\n"
            "\r\n"
            "  -n" +
            std::string(26, ' ') + "Optional, notify user when bat file has completed \r\n");
}

TEST_F(CommandLineHelp, Its_columns_line_up_in_a_fixed_width_font) {
    EXPECT_EQ(form.txtHelp.font(), (Font{.name = "Courier New", .points = 9}));
    std::size_t start = 0;
    int options = 0;
    for (std::size_t end = 0; (end = commandLineHelp.find("\r\n", start)) != std::string::npos;
         start = end + 2) {
        const std::string_view line = commandLineHelp.substr(start, end - start);
        if (line.starts_with("  -")) {
            ++options;
            EXPECT_EQ(line.find_last_of(' ', 30), 29U) << line;
            EXPECT_TRUE(line.substr(30).starts_with("Required, ") ||
                        line.substr(30).starts_with("Optional, "))
                << line;
        }
    }
    EXPECT_EQ(options, 4);
    EXPECT_EQ(start, commandLineHelp.size());
}

TEST_F(CommandLineHelp, It_is_only_for_reading) {
    EXPECT_EQ(form.name(), "frmDisplayCommandLineHelp");
    EXPECT_EQ(form.caption(), "Command Line Help on Tarnwick");
    EXPECT_EQ(form.cmdOK.caption(), "OK");
    EXPECT_TRUE(form.txtHelp.readOnly());
    EXPECT_EQ(form.txtHelp.selLength(), 0);
    EXPECT_EQ(form.focused(), &form.cmdOK);
}

TEST_F(CommandLineHelp, It_is_centred_on_the_screen) {
    EXPECT_EQ(form.window(), (Bounds{.left = 3180, .top = 3260, .width = 9000, .height = 5000}));
}

TEST_F(CommandLineHelp, It_is_laid_out_before_it_is_seen) {
    EXPECT_EQ(form.cmdOK.bounds(),
              (Bounds{.left = 3900, .top = 4145, .width = 1200, .height = 345}));
    EXPECT_EQ(form.txtHelp.bounds(),
              (Bounds{.left = 135, .top = 135, .width = 8595, .height = 3875}));
}

TEST_F(CommandLineHelp, Resizing_keeps_the_margins_and_the_button_centred_at_the_bottom) {
    form.userResized({.width = 12000, .height = 8000}, WindowState::Maximized);
    EXPECT_EQ(form.cmdOK.bounds(),
              (Bounds{.left = 5400, .top = 7145, .width = 1200, .height = 345}));
    EXPECT_EQ(form.txtHelp.bounds(),
              (Bounds{.left = 135, .top = 135, .width = 11595, .height = 6875}));
}

TEST_F(CommandLineHelp, Minimizing_moves_nothing) {
    const Bounds text = form.txtHelp.bounds();
    const Bounds button = form.cmdOK.bounds();
    form.userResized({.width = 2400, .height = 405}, WindowState::Minimized);
    EXPECT_EQ(form.txtHelp.bounds(), text);
    EXPECT_EQ(form.cmdOK.bounds(), button);
}

TEST_F(CommandLineHelp, A_window_too_small_for_the_text_leaves_it_no_size) {
    form.userResized({.width = 300, .height = 900}, WindowState::Normal);
    EXPECT_EQ(form.txtHelp.bounds(), (Bounds{.left = 135, .top = 135, .width = 0, .height = 0}));
}

TEST_F(CommandLineHelp, OK_Enter_Escape_and_closing_end_it) {
    ScriptedPresenter presenter;
    form.unload();
    const auto closing = {
        ScriptedPresenter::Script([this](Form&) { form.userClicked(form.cmdOK); }),
        ScriptedPresenter::Script([](Form& help) { help.userPressedEnter(); }),
        ScriptedPresenter::Script([](Form& help) { help.userPressedEscape(); }),
        ScriptedPresenter::Script([](Form& help) { help.userClosed(); })};
    for (const auto& way : closing) {
        presenter.thenUser(way);
        presenter.showModal(form);
        EXPECT_FALSE(form.loaded());
    }
}

} // namespace
} // namespace tarnwick
