#include "platform/run_time_error.hpp"
#include "support/scripted_desktop.hpp"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(ScriptedDesktop, Messages_are_remembered_and_questions_answered_from_the_script) {
    ScriptedDesktop desktop;
    desktop.answers = {MessageAnswer::Yes, MessageAnswer::No};
    const Message question{.text = "Save?", .title = "T", .buttons = MessageButtons::YesNo};
    EXPECT_EQ(desktop.show(question), MessageAnswer::Yes);
    EXPECT_EQ(desktop.show({.text = "Done", .title = "T"}), MessageAnswer::Ok);
    EXPECT_EQ(desktop.show(question), MessageAnswer::No);
    EXPECT_EQ(desktop.messages,
              (std::vector<Message>{question, {.text = "Done", .title = "T"}, question}));
}

TEST(ScriptedDesktop, A_question_that_the_script_does_not_foresee_fails_the_test) {
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedDesktop desktop;
            desktop.show({.text = "Save?", .title = "T", .buttons = MessageButtons::YesNo});
        },
        "the script has no answer to: Save?");
}

TEST(ScriptedDesktop, A_file_dialog_gives_the_scripted_file_or_is_cancelled) {
    ScriptedDesktop desktop;
    FileDialog dialog;
    dialog.title = "Open";
    desktop.chosenFiles = {R"(C:\a.ini)", std::nullopt};
    EXPECT_EQ(desktop.chooseFile(dialog), R"(C:\a.ini)");
    EXPECT_EQ(desktop.chooseFile(dialog), std::nullopt);
    EXPECT_EQ(desktop.fileDialogs, (std::vector<FileDialog>{dialog, dialog}));
}

TEST(ScriptedDesktop, Opened_documents_are_remembered) {
    ScriptedDesktop desktop;
    desktop.openResult = 2;
    EXPECT_EQ(desktop.openDocument("a.htm", R"(C:\)"), 2);
    EXPECT_EQ(desktop.opened, (std::vector<ScriptedDesktop::Opened>{{"a.htm", R"(C:\)"}}));
}

} // namespace
} // namespace tarnwick
