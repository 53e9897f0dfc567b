#include "common/unseen_desktop.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarnwick {
namespace {

using testing::ElementsAre;

class RememberingLog final : public EventLog {
  public:
    void warn(std::string_view text) override { texts.emplace_back(text); }

    std::vector<std::string> texts;
};

struct UnseenDesktopTest : testing::Test {
    RememberingLog log;
    UnseenDesktop desktop{log};
};

TEST(DefaultAnswer, Is_the_first_button_of_the_box) {
    EXPECT_EQ(defaultAnswer(MessageButtons::Ok), MessageAnswer::Ok);
    EXPECT_EQ(defaultAnswer(MessageButtons::YesNo), MessageAnswer::Yes);
}

TEST_F(UnseenDesktopTest, Nobody_sees_it) {
    EXPECT_FALSE(desktop.isSeen());
}

TEST_F(UnseenDesktopTest, A_message_stands_in_the_log_as_it_would_in_its_box) {
    EXPECT_EQ(desktop.show({.text = "The INI file \"a\" does not exist.", .title = "Warning"}),
              MessageAnswer::Ok);
    EXPECT_THAT(log.texts, ElementsAre("The INI file \"a\" does not exist."));
}

TEST_F(UnseenDesktopTest, A_question_is_answered_with_its_default_and_the_log_says_so) {
    EXPECT_EQ(
        desktop.show({.text = "Save?", .title = "Tarnwick", .buttons = MessageButtons::YesNo}),
        MessageAnswer::Yes);
    EXPECT_THAT(log.texts, ElementsAre("Save?\r\nThis counts as answered with \"Yes\": nobody can "
                                       "see it."));
}

TEST_F(UnseenDesktopTest, A_file_dialog_is_cancelled) {
    FileDialog dialog;
    dialog.title = "Save INI File As";
    EXPECT_EQ(desktop.chooseFile(dialog), std::nullopt);
    EXPECT_THAT(
        log.texts,
        ElementsAre("The dialog \"Save INI File As\" counts as cancelled: nobody can see it."));
}

TEST_F(UnseenDesktopTest, A_document_is_not_opened) {
    EXPECT_EQ(desktop.openDocument("C:\\a.chm", "C:\\"), 5); // access denied
    EXPECT_THAT(log.texts, ElementsAre("\"C:\\a.chm\" is not opened: nobody can see it."));
}

} // namespace
} // namespace tarnwick
