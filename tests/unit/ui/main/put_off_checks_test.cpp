// What is wrong with a field is not said on the way to what mends it: the box that switches the
// field off, and the Browse button beside it.
#include "unit/ui/main/main_world.hpp"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct PutOffChecks : MainWorld {
    PutOffChecks() {
        form.show();
        form.userClicked(form.chkCNS);
        form.userClicked(form.chkAliases);
        form.userClicked(form.chkCFG);
        listRecords();
        form.userClicked(form.cmdSelectFiles[1]);
        type(form.txtCNS, R"(D:\cns)");
        type(form.txtAliases, R"(D:\aliases.txt)");
        type(form.txtCFG, R"(D:\plain.cfg)");
        leave();
        forgetChanges();
    }

    static constexpr const char* wrong = R"(D:\nowhere)";
};

TEST_F(PutOffChecks, A_box_that_switches_a_wrong_field_off_can_be_cleared) {
    const std::vector<std::pair<TextBox*, CheckBox*>> boxes{{&form.txtAliases, &form.chkAliases},
                                                            {&form.txtCFG, &form.chkCFG},
                                                            {&form.txtAliases, &form.chkCNS},
                                                            {&form.txtCNS, &form.chkCNS}};
    for (const auto& [field, box] : boxes) {
        type(*field, wrong);
        form.userClicked(*box);
        EXPECT_FALSE(box->ticked()) << field->name();
        EXPECT_FALSE(field->enabled()) << field->name();
        leave();
        form.userMovedFocus(form.txtInExt);
        EXPECT_THAT(desktop.messages, IsEmpty()) << field->name();
        EXPECT_EQ(form.focused(), &form.txtInExt) << field->name();
        EXPECT_TRUE(form.cmdOK.enabled()) << field->name();
        field->setText(field == &form.txtCFG   ? R"(D:\plain.cfg)"
                       : field == &form.txtCNS ? R"(D:\cns)"
                                               : R"(D:\aliases.txt)");
        form.userClicked(*box);
    }
}

TEST_F(PutOffChecks, Who_leaves_the_box_as_it_is_hears_of_the_field_then) {
    type(form.txtAliases, wrong);
    form.userMovedFocus(form.chkAliases);
    EXPECT_THAT(desktop.messages, IsEmpty());
    form.userMovedFocus(form.cmdOK);
    expectRefusal(form.txtAliases, R"(The Aliases file "D:\nowhere" does not exist.)");
}

TEST_F(PutOffChecks, A_wrong_field_can_be_filled_by_the_Browse_button_beside_it) {
    type(form.txtAliases, wrong);
    desktop.chosenFiles = {R"(D:\aliases.txt)"};
    form.userClicked(form.cmdAliases);
    type(form.txtCFG, wrong);
    desktop.chosenFiles = {R"(D:\plain.cfg)"};
    form.userClicked(form.cmdCFG);
    type(form.txtCNS, wrong);
    pickedFolders = {R"(D:\cns)", R"(D:\empty)"};
    form.userClicked(form.cmdCNS);
    type(form.txtInput, wrong);
    form.userClicked(form.cmdInput);
    leave();
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_EQ(form.txtAliases.text(), R"(D:\aliases.txt)");
    EXPECT_EQ(form.txtCFG.text(), R"(D:\plain.cfg)");
    EXPECT_EQ(form.txtCNS.text(), R"(D:\cns)");
    EXPECT_EQ(form.txtInput.text(), R"(D:\empty)");
    EXPECT_EQ(form.focused(), &form.chkMP);
}

TEST_F(PutOffChecks, After_a_cancelled_Browse_the_field_is_checked_when_the_focus_moves_on) {
    type(form.txtInput, wrong);
    pickedFolders = {""};
    form.userClicked(form.cmdInput);
    EXPECT_THAT(desktop.messages, IsEmpty());
    leave();
    expectRefusal(form.txtInput, R"(The "D:\nowhere" folder does not exist.)");
}

TEST_F(PutOffChecks, From_the_button_to_the_box_and_back_into_the_field_nothing_is_said) {
    type(form.txtAliases, wrong);
    form.userMovedFocus(form.cmdAliases);
    form.userMovedFocus(form.chkAliases);
    form.userMovedFocus(form.chkCNS);
    form.userMovedFocus(form.txtAliases);
    EXPECT_THAT(desktop.messages, IsEmpty());
    form.userMovedFocus(form.cmdCFG); // beside another field
    expectRefusal(form.txtAliases, R"(The Aliases file "D:\nowhere" does not exist.)");
}

TEST_F(PutOffChecks, What_was_typed_into_a_field_that_is_off_is_asked_about_all_the_same) {
    type(form.txtCFG, wrong);
    form.userMovedFocus(form.chkCFG);
    desktop.answers = {MessageAnswer::No};
    form.userClosed();
    EXPECT_THAT(desktop.messages, ElementsAre(saveQuestion(defaultIni)));
}

} // namespace
} // namespace tarnwick
