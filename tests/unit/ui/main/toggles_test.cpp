// What each check box does, one by one.
#include "unit/ui/main/main_world.hpp"

namespace tarnwick {
namespace {

using testing::IsEmpty;

struct Toggles : MainWorld {
    Toggles() { form.show(); }

    std::vector<Control*> cnsGroup() {
        return {&form.lblCNS,      &form.txtCNS,     &form.cmdCNS,     &form.lblCNSExt,
                &form.txtCNSExt,   &form.chkAliases, &form.txtAliases, &form.cmdAliases,
                &form.lblCNSFiles, &form.grdCNS};
    }
};

TEST_F(Toggles, Unticking_CNS_disables_its_whole_group_and_relabels_the_folder) {
    form.userClicked(form.chkCNS);
    form.userClicked(form.chkAliases);
    for (const Control* const control : cnsGroup()) {
        EXPECT_TRUE(control->enabled()) << control->name();
    }
    EXPECT_EQ(form.lblCNS.caption(), "CNS &output folder / MP input folder:");
    form.userClicked(form.chkCNS);
    for (const Control* const control : cnsGroup()) {
        EXPECT_FALSE(control->enabled()) << control->name();
    }
    EXPECT_EQ(form.lblCNS.caption(), "CNS &output folder:");
    EXPECT_TRUE(form.chkMP.ticked());
    EXPECT_TRUE(form.grdFiles.enabled());
}

TEST_F(Toggles, Ticking_CNS_leaves_the_aliases_field_off_until_it_is_used) {
    form.userClicked(form.chkCNS);
    EXPECT_TRUE(form.chkAliases.enabled());
    EXPECT_FALSE(form.txtAliases.enabled());
    EXPECT_FALSE(form.cmdAliases.enabled());
}

TEST_F(Toggles, CNS_is_a_change_and_MP_is_not) {
    form.userClicked(form.chkMP);
    EXPECT_FALSE(changed());
    form.userClicked(form.chkCNS);
    EXPECT_TRUE(changed());
}

TEST_F(Toggles, The_other_boxes_are_changes) {
    form.userClicked(form.chkCNS);
    for (CheckBox* const box : {&form.chkAliases, &form.chkCFG, &form.chkfixdoc}) {
        forgetChanges();
        form.userClicked(*box);
        EXPECT_TRUE(changed()) << box->name();
    }
}

TEST_F(Toggles, MP_switches_its_group) {
    form.userClicked(form.chkCNS);
    form.userClicked(form.chkMP);
    for (const Control* const control : std::initializer_list<Control*>{
             &form.lblMPFiles, &form.grdFiles, &form.chkfixdoc, &form.cmdOutputFolder}) {
        EXPECT_FALSE(control->enabled()) << control->name();
    }
    EXPECT_EQ(form.lblCNS.caption(), "CNS &output folder:");
    form.userClicked(form.chkMP);
    EXPECT_TRUE(form.cmdOutputFolder.enabled());
    EXPECT_EQ(form.lblCNS.caption(), "CNS &output folder / MP input folder:");
}

TEST_F(Toggles, With_outputs_named_elsewhere_ticking_CNS_empties_its_folder_and_extension) {
    form.userClicked(form.chkCFG);
    type(form.txtCFG, R"(D:\names.cfg)");
    leave();
    ASSERT_TRUE(form.definition().bCfgNamesOutput);
    form.txtCNS.setText(R"(D:\cns)");
    EXPECT_EQ(form.txtCNSExt.text(), ".cns");
    form.userClicked(form.chkCNS);
    EXPECT_EQ(form.txtCNS.text(), "");
    EXPECT_EQ(form.txtCNSExt.text(), "");
    for (const Control* const control :
         std::initializer_list<Control*>{&form.lblCNS, &form.txtCNS, &form.cmdCNS, &form.lblCNSExt,
                                         &form.txtCNSExt, &form.lblCNSFiles, &form.grdCNS}) {
        EXPECT_FALSE(control->enabled()) << control->name();
    }
    EXPECT_TRUE(form.chkAliases.enabled());
}

TEST_F(Toggles, Unticking_the_configuration_file_frees_what_it_had_taken) {
    form.userClicked(form.chkCNS);
    form.userClicked(form.chkCFG);
    EXPECT_TRUE(form.txtCFG.enabled());
    EXPECT_TRUE(form.cmdCFG.enabled());
    type(form.txtCFG, R"(D:\names.cfg)");
    leave();
    form.userClicked(form.chkCFG);
    EXPECT_FALSE(form.txtCFG.enabled());
    EXPECT_FALSE(form.cmdCFG.enabled());
    EXPECT_FALSE(form.definition().bCfgNamesInput);
    EXPECT_FALSE(form.definition().bCfgNamesOutput);
    EXPECT_TRUE(form.grdCNS.enabled());
    EXPECT_TRUE(form.grdFiles.enabled());
    // The rows stay off, and the field keeps its text for the next time.
    EXPECT_EQ(form.grdFiles.text(1, 0), "\xA8");
    form.userClicked(form.chkCFG);
    EXPECT_TRUE(form.definition().bCfgNamesOutput);
    EXPECT_FALSE(form.grdFiles.enabled());
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(Toggles, Ticking_a_configuration_file_that_is_not_there_inspects_nothing) {
    form.txtCFG.setText(R"(D:\no.cfg)");
    form.userClicked(form.chkCFG);
    EXPECT_FALSE(form.definition().bCfgNamesOutput);
    EXPECT_THAT(desktop.messages, IsEmpty());
}

TEST_F(Toggles, The_clean_up_box_is_kept_as_0_or_1_and_leaves_the_status_alone) {
    form.userMovedFocus(form.chkfixdoc);
    form.StatusBar1.setPanelText(1, "Done!");
    form.userClicked(form.chkfixdoc);
    EXPECT_EQ(form.definition().iFixDoc, 1);
    EXPECT_EQ(form.StatusBar1.panelText(1), "Done!");
    form.userClicked(form.chkfixdoc);
    EXPECT_EQ(form.definition().iFixDoc, 0);
}

TEST_F(Toggles, Every_other_box_clears_the_status) {
    form.userClicked(form.chkCNS);
    for (CheckBox* const box : {&form.chkAliases, &form.chkCNS, &form.chkMP, &form.chkCFG}) {
        form.userMovedFocus(*box);
        form.StatusBar1.setPanelText(1, "Done!");
        form.userClicked(*box);
        EXPECT_EQ(form.StatusBar1.panelText(1), "") << box->name();
    }
}

TEST_F(Toggles, Whatever_gets_the_focus_clears_the_status) {
    form.userClicked(form.chkCNS);
    form.userClicked(form.chkAliases);
    form.userClicked(form.chkCFG);
    listRecords();
    int tried = 0;
    for (Control* const control : form.controls()) {
        if (control->isFocusable() && control->isUsable() && control != form.focused()) {
            form.StatusBar1.setPanelText(1, "Done!");
            form.userMovedFocus(*control);
            EXPECT_EQ(form.StatusBar1.panelText(1), "") << control->name();
            ++tried;
        }
    }
    EXPECT_GT(tried, 15);
}

} // namespace
} // namespace tarnwick
