// The window without a mouse and without a screen: access keys, the order of the focus, what a
// screen reader says, and where the focus goes when its control is switched off.
#include "ui/forms/access_keys.hpp"
#include "unit/ui/main/main_world.hpp"

#include <fstream>
#include <regex>
#include <set>

namespace tarnwick {
namespace {

using testing::ElementsAre;

struct Keyboard : MainWorld {
    Keyboard() { form.show(); }

    // Presses Alt and the key: where that goes to. A click on a control to click is left out.
    Control* press(char key) {
        if (opensMenu(form, key)) {
            return nullptr;
        }
        Control* const target = accessKeyTarget(form, key).control;
        if (target != nullptr) {
            form.userMovedFocus(*target);
        }
        return target;
    }
};

TEST_F(Keyboard, A_menu_wins_over_a_control_of_the_same_key_whether_CNS_is_run_or_not) {
    for (const bool cns : {false, true}) {
        EXPECT_EQ(form.grdCNS.enabled(), cns);
        for (const char key : {'f', 't', 'h'}) {
            EXPECT_TRUE(opensMenu(form, key)) << key;
        }
        form.userClicked(form.chkCNS);
    }
    // Both keys are in the captions of controls as well.
    form.userClicked(form.chkCNS);
    EXPECT_EQ(accessKeyTarget(form, 'f').control, &form.grdCNS);
    EXPECT_EQ(accessKeyTarget(form, 't').control, &form.txtCNSExt);
}

TEST_F(Keyboard, Controls_of_the_same_key_take_turns_while_they_can_be_used) {
    EXPECT_EQ(press('a'), &form.lstAvailable);
    EXPECT_EQ(press('a'), &form.lstAvailable);
    EXPECT_EQ(press('l'), &form.cboLanguage);
    EXPECT_EQ(press('l'), &form.cmdOutputFolder);
    EXPECT_EQ(press('l'), &form.cboLanguage);
    form.userClicked(form.chkCNS);
    EXPECT_EQ(press('a'), &form.chkAliases);
    EXPECT_EQ(press('a'), &form.lstAvailable);
    EXPECT_EQ(press('a'), &form.chkAliases);
    EXPECT_FALSE(accessKeyTarget(form, 'a').isOnly); // nothing is clicked in passing
    form.userClicked(form.chkMP);
    EXPECT_EQ(press('l'), &form.cboLanguage);
    EXPECT_EQ(press('l'), &form.cboLanguage);
}

TEST_F(Keyboard, Every_other_key_leads_to_the_one_control_that_bears_it) {
    form.userClicked(form.chkCNS);
    const std::vector<std::pair<char, Control*>> expected{
        {'c', &form.chkCNS},    {'o', &form.txtCNS},   {'m', &form.chkMP},
        {'r', &form.chkfixdoc}, {'d', &form.grdFiles}, {'g', &form.chkCFG},
        {'i', &form.txtInput},  {'e', &form.txtInExt}, {'s', &form.lstSelected}};
    for (const auto& [key, control] : expected) {
        const AccessKeyTarget target = accessKeyTarget(form, key);
        EXPECT_EQ(target.control, control) << key;
        EXPECT_TRUE(target.isOnly) << key;
        EXPECT_FALSE(opensMenu(form, key)) << key;
    }
    listRecords();
    form.userClicked(form.cmdSelectFiles[1]);
    form.userClicked(form.chkCNS);
    EXPECT_EQ(press('b'), &form.cmdCreateBatFile);
}

TEST_F(Keyboard, The_focus_goes_through_the_window_in_the_order_of_its_resource) {
    std::ifstream resource(TARNWICK_RESOURCE);
    ASSERT_TRUE(resource.is_open());
    const std::regex dialog("^" + form.name() + " DIALOGEX.*");
    const std::regex control(R"re( *CONTROL "(\w+)".*)re");
    std::vector<std::string> names;
    bool inside = false;
    std::string line;
    while (std::getline(resource, line)) {
        std::smatch match;
        inside = (inside || std::regex_match(line, dialog)) && line != "END";
        if (inside && std::regex_match(line, match, control)) {
            const Control* const found = form.find(match[1].str());
            ASSERT_NE(found, nullptr) << line;
            if (found->isFocusable()) {
                names.push_back(found->name());
            }
        }
    }
    std::vector<std::string> expected;
    for (const Control* const each : form.controls()) {
        if (each->isFocusable()) {
            expected.push_back(each->name());
        }
    }
    EXPECT_EQ(names, expected);
}

// What a screen reader says: the name that was given, or the caption, or that of the label before.
std::string spoken(const Form& form, const Control& control) {
    if (!control.accessibleName().empty()) {
        return control.accessibleName();
    }
    if (const auto* const captioned = dynamic_cast<const Captioned*>(&control)) {
        return captioned->caption();
    }
    const auto place = std::ranges::find(form.controls(), &control);
    if (place != form.controls().begin()) {
        if (const auto* const label = dynamic_cast<const Label*>(*std::prev(place))) {
            return label->caption();
        }
    }
    return {};
}

TEST_F(Keyboard, Every_control_that_can_have_the_focus_has_a_name_of_its_own) {
    form.userClicked(form.chkCNS);
    click(form.grdCNS, 1, 0);
    click(form.grdCNS, 1, 3); // the editors are named when they open
    leave();
    click(form.grdFiles, 1, 3);
    std::set<std::string> names;
    for (const Control* const control : form.controls()) {
        if (control->isFocusable()) {
            const std::string name = spoken(form, *control);
            EXPECT_NE(name.find_first_not_of(" .<>"), std::string::npos) << control->name();
            EXPECT_TRUE(names.insert(name).second) << control->name() << ": " << name;
        }
    }
    EXPECT_EQ(names.size(), 32U);
}

TEST_F(Keyboard, A_cell_is_told_with_the_type_of_its_row) {
    EXPECT_EQ(form.grdFiles.accessibleText(1, 0), "Error, Build?: ticked");
    EXPECT_EQ(form.grdFiles.accessibleText(3, 2), "Html, Extension: .html");
    EXPECT_EQ(form.grdCNS.accessibleText(2, 3), "Leftovers, Output Folder: empty");
}

TEST_F(Keyboard, Whoever_is_switched_off_with_the_focus_hands_it_to_its_successor) {
    form.userClicked(form.chkCNS);
    form.userClicked(form.chkAliases);
    form.userClicked(form.chkCFG);
    listRecords();
    select(form.lstAvailable, {0});
    const std::vector<std::pair<Control*, Control*>> successors{
        {&form.txtCNS, &form.chkCNS},
        {&form.cmdCNS, &form.chkCNS},
        {&form.txtCNSExt, &form.chkCNS},
        {&form.chkAliases, &form.chkCNS},
        {&form.txtAliases, &form.chkCNS},
        {&form.cmdAliases, &form.chkCNS},
        {&form.grdCNS, &form.chkCNS},
        {&form.chkfixdoc, &form.chkMP},
        {&form.cmdOutputFolder, &form.chkMP},
        {&form.grdFiles, &form.chkMP},
        {&form.txtCFG, &form.chkCFG},
        {&form.cmdCFG, &form.chkCFG},
        {&form.cmdSelectFiles[0], &form.lstAvailable},
        {&form.cmdSelectFiles[1], &form.lstSelected},
        {&form.cmdSelectFiles[2], &form.lstSelected},
        {&form.cmdSelectFiles[3], &form.lstAvailable},
        {&form.cmdCreateBatFile, &form.cmdCancel},
        {&form.cmdOK, &form.cmdCancel}};
    for (const auto& [control, successor] : successors) {
        control->setEnabled(true);
        control->setFocus();
        ASSERT_EQ(form.focused(), control) << control->name();
        control->setEnabled(false);
        EXPECT_EQ(form.focused(), successor) << control->name();
        control->setEnabled(true);
    }
}

TEST_F(Keyboard,
       A_move_button_that_switches_itself_off_leaves_the_focus_in_the_list_that_it_filled) {
    listRecords();
    form.userClicked(form.cmdSelectFiles[1]);
    EXPECT_EQ(form.focused(), &form.lstSelected);
    form.userClicked(form.cmdSelectFiles[3]);
    EXPECT_EQ(form.focused(), &form.lstAvailable);
}

TEST_F(Keyboard, Escape_in_a_grid_ends_an_edit_and_then_does_nothing_as_elsewhere) {
    form.userMovedFocus(form.grdFiles);
    form.grdFiles.setCurrent({.row = 1, .column = 2});
    form.grdFiles.userTyped('x');
    ASSERT_TRUE(form.txtEdit.visible());
    form.userPressedEscape();
    EXPECT_FALSE(form.txtEdit.visible());
    EXPECT_EQ(form.focused(), &form.grdFiles);
    EXPECT_TRUE(form.loaded());
    form.userPressedEscape();
    EXPECT_TRUE(form.visible());
    EXPECT_THAT(desktop.messages, ElementsAre());
}

} // namespace
} // namespace tarnwick
