// Where things stand, how they are called, and in which order the keyboard reaches them.
#include "ui/main/output_rows.hpp"
#include "unit/ui/main/main_world.hpp"

#include <set>

namespace tarnwick {
namespace {

using testing::ElementsAre;

struct Layout : MainWorld {
    Layout() { form.show(); }

    static bool inside(const Bounds& inner, const Bounds& outer) {
        return inner.left >= outer.left && inner.top >= outer.top &&
               inner.left + inner.width <= outer.left + outer.width &&
               inner.top + inner.height <= outer.top + outer.height;
    }
    static bool apart(const Bounds& a, const Bounds& b) {
        return a.left + a.width <= b.left || b.left + b.width <= a.left ||
               a.top + a.height <= b.top || b.top + b.height <= a.top;
    }
};

TEST_F(Layout, The_window_goes_back_to_its_size) {
    form.userResized({.width = 9000, .height = 5000}, WindowState::Normal);
    EXPECT_EQ(form.window().width, 12735);
    EXPECT_EQ(form.window().height, 8460);
}

TEST_F(Layout, Minimized_or_maximized_it_is_left_alone) {
    form.StatusBar1.setPanelWidth(1, 1);
    for (const WindowState state : {WindowState::Minimized, WindowState::Maximized}) {
        form.userResized({.width = 20000, .height = 12000}, state);
        EXPECT_EQ(form.window().width, 20000);
        EXPECT_EQ(form.StatusBar1.panelWidth(1), 1);
    }
    form.userResized({.width = 20001, .height = 12000}, WindowState::Normal);
    EXPECT_EQ(form.window().width, 12735);
    EXPECT_NE(form.StatusBar1.panelWidth(1), 1);
}

TEST_F(Layout, The_first_panel_takes_what_the_others_leave) {
    const StatusBar& bar = form.StatusBar1;
    EXPECT_EQ(bar.panels(), 3);
    EXPECT_EQ(bar.panelWidth(1), 12735 - bar.panelWidth(2) - bar.panelWidth(3) - 280);
    EXPECT_EQ(bar.bounds().top + bar.bounds().height, form.content().height);
    EXPECT_EQ(bar.bounds().width, form.content().width);
}

TEST_F(Layout, The_progress_bar_lies_in_the_third_panel) {
    const StatusBar& bar = form.StatusBar1;
    EXPECT_EQ(form.ProgressBar1.bounds(), (Bounds{.left = bar.panelLeft(3) + 15,
                                                  .top = bar.bounds().top + 30,
                                                  .width = bar.panelWidth(3),
                                                  .height = bar.bounds().height - 45}));
    EXPECT_FALSE(form.ProgressBar1.visible());
}

TEST_F(Layout, Two_rules_run_below_the_menu) {
    EXPECT_EQ(form.linTop.bounds().top, 0);
    EXPECT_EQ(form.linTop2.bounds().top, 15);
    EXPECT_EQ(form.linTop.bounds().width, form.content().width);
    EXPECT_EQ(form.linTop2.bounds().width, form.content().width);
}

TEST_F(Layout, The_columns_of_the_grids_have_their_widths) {
    for (const Grid* const grid : {&form.grdCNS, &form.grdFiles}) {
        EXPECT_EQ(grid->columnWidth(0), 550);
        EXPECT_EQ(grid->columnWidth(1), 800);
        EXPECT_EQ(grid->columnWidth(2), 820);
        EXPECT_EQ(grid->columnWidth(3), grid->bounds().width - 550 - 800 - 820 - 135);
        EXPECT_TRUE(grid->rowIsVisible(grid->rows() - 1)); // no row is scrolled away
        EXPECT_EQ(grid->topRow(), 1);
    }
}

TEST_F(Layout, Groups_hold_their_controls_and_nothing_covers_anything) {
    struct Taken : Size {
        int statusHeight = 0; // 0: as it was laid out
    };
    // The whole height, and what is left of it below a menu bar; narrow frames and wide ones; title
    // and menu in letters of more than twice the size, where the status bar may be higher as well.
    for (const Taken& taken : {Taken{{120, 405}}, Taken{{90, 690}}, Taken{{240, 720}},
                               Taken{{90, 1380}}, Taken{{90, 1380}, 645}}) {
        form.measuredFrame(static_cast<const Size&>(taken));
        if (taken.statusHeight != 0) {
            form.StatusBar1.setBounds(
                {.left = 0, .top = 0, .width = 1, .height = taken.statusHeight});
        }
        form.Resize();
        const Bounds room{.left = 0,
                          .top = 0,
                          .width = 12735 - taken.width,
                          .height = form.StatusBar1.bounds().top};
        const std::set<const Control*> frames{&form.fraLanguage, &form.fraCNS, &form.fraMP,
                                              &form.fraInput};
        const std::set<const Control*> elsewhere{
            &form.StatusBar1, &form.ProgressBar1, &form.linTop,  &form.linTop2,
            &form.txtEdit,    &form.txtEditCNS,   &form.cmdEdit, &form.cmdEditCNS};
        const Control* frame = nullptr;
        for (const Control* const control : form.controls()) {
            if (elsewhere.contains(control)) {
                continue;
            }
            EXPECT_TRUE(inside(control->bounds(), room)) << control->name();
            EXPECT_GT(control->bounds().width, 0) << control->name();
            EXPECT_GT(control->bounds().height, 0) << control->name();
            if (frames.contains(control)) {
                frame = control;
            } else if (control == &form.chkCFG || control == &form.cmdCreateBatFile) {
                frame = nullptr; // these stand beside the groups
            } else if (frame != nullptr) {
                EXPECT_TRUE(inside(control->bounds(), frame->bounds())) << control->name();
            }
            for (const Control* const other : form.controls()) {
                if (other != control && !elsewhere.contains(other) &&
                    frames.contains(control) == frames.contains(other)) {
                    EXPECT_TRUE(apart(control->bounds(), other->bounds()))
                        << control->name() << " and " << other->name();
                }
            }
        }
    }
}

// By default the lists are 2085 twips high.
TEST_F(Layout, The_four_buttons_stay_beside_the_lists_when_large_letters_make_these_low) {
    struct Look {
        int frame;
        int pitch;
        int height;
    };
    for (const Look& look : {Look{.frame = 405, .pitch = 420, .height = 345},
                             Look{.frame = 885, .pitch = 405, .height = 345},
                             Look{.frame = 1380, .pitch = 281, .height = 266}}) {
        form.measuredFrame({.width = 90, .height = look.frame});
        form.Resize();
        const Bounds& list = form.lstAvailable.bounds();
        const auto& buttons = form.cmdSelectFiles;
        EXPECT_EQ(list.height, 2490 - look.frame);
        for (std::size_t i = 0; i < buttons.size(); ++i) {
            EXPECT_EQ(buttons.at(i).bounds().height, look.height);
            EXPECT_EQ(buttons.at(i).bounds().top,
                      buttons.at(0).bounds().top + static_cast<int>(i) * look.pitch);
        }
        const int below = list.top + list.height - buttons.at(3).bounds().top - look.height;
        EXPECT_GE(buttons.at(0).bounds().top, list.top);
        EXPECT_NEAR(buttons.at(0).bounds().top - list.top, below, 1);
    }
}

TEST_F(Layout, The_right_margin_is_as_wide_as_the_left_one_whatever_the_frame_takes) {
    for (const int frame : {90, 120, 240}) {
        form.measuredFrame({.width = frame, .height = 405});
        form.Resize();
        const int right = form.content().width - form.fraCNS.bounds().left;
        EXPECT_EQ(form.content().width, 12735 - frame);
        for (const Control* const control : std::initializer_list<Control*>{
                 &form.fraMP, &form.cmdCreateBatFile, &form.cmdOK, &form.cmdCancel}) {
            EXPECT_EQ(control->bounds().left + control->bounds().width, right) << control->name();
        }
        EXPECT_EQ(form.grdFiles.columnWidth(3),
                  form.grdFiles.bounds().width - 550 - 800 - 820 - 135);
    }
}

TEST_F(Layout, Captions_have_room_at_the_usual_width_of_letters) {
    constexpr int perLetter = 84; // twips, of the dialog font on average
    constexpr int boxAndGap = 270;
    form.measuredFrame({.width = 240, .height = 720}); // the least room
    form.Resize();
    for (const Control* const control : form.controls()) {
        const auto* const captioned = dynamic_cast<const Captioned*>(control);
        if (captioned == nullptr || captioned->caption().empty() || captioned->caption() == "...") {
            continue;
        }
        const int extra = dynamic_cast<const CheckBox*>(control) != nullptr ? boxAndGap : 0;
        EXPECT_GE(control->bounds().width,
                  extra + perLetter * static_cast<int>(captioned->caption().size() - 1))
            << control->name();
    }
}

TEST_F(Layout, The_focus_goes_through_the_window_as_the_eye_does) {
    std::vector<std::string> names;
    for (const Control* const control : form.controls()) {
        if (control->isFocusable()) {
            names.push_back(control->name());
        }
    }
    EXPECT_THAT(names,
                ElementsAre("cboLanguage", "chkCNS", "txtCNS", "cmdCNS", "txtCNSExt", "chkAliases",
                            "txtAliases", "cmdAliases", "txtEditCNS", "cmdEditCNS", "grdCNS",
                            "chkMP", "chkfixdoc", "cmdOutputFolder", "txtEdit", "cmdEdit",
                            "grdFiles", "chkCFG", "txtCFG", "cmdCFG", "txtInput", "cmdInput",
                            "txtInExt", "lstAvailable", "cmdSelectFiles1", "cmdSelectFiles2",
                            "cmdSelectFiles3", "cmdSelectFiles4", "lstSelected", "cmdCreateBatFile",
                            "cmdOK", "cmdCancel"));
}

TEST_F(Layout, Every_label_stands_before_what_it_names) {
    const auto& controls = form.controls();
    for (std::size_t i = 0; i + 1 < controls.size(); ++i) {
        if (dynamic_cast<const Label*>(controls[i]) != nullptr) {
            EXPECT_TRUE(controls[i + 1]->isFocusable()) << controls[i]->name();
        }
    }
    EXPECT_FALSE(form.cmdOK.isDefault()); // Enter must not start a batch
    EXPECT_TRUE(form.cmdCancel.isCancel());
}

TEST_F(Layout, Captions_are_as_given) {
    EXPECT_EQ(form.fraLanguage.caption(), "&Language");
    EXPECT_EQ(form.chkCNS.caption(), "&CNS (pre-parser)");
    EXPECT_EQ(form.lblCNSExt.caption(), "Ex&tension:");
    EXPECT_EQ(form.chkAliases.caption(), "&Aliases file:");
    EXPECT_EQ(form.lblCNSFiles.caption(), "Output de&finition:");
    EXPECT_EQ(form.chkMP.caption(), "&MP");
    EXPECT_EQ(form.chkfixdoc.caption(), "&Run special clean-up on DOCUMENT.aml output");
    EXPECT_EQ(form.cmdOutputFolder.caption(), "Set A&ll Folders...");
    EXPECT_EQ(form.lblMPFiles.caption(), "Output &definition:");
    EXPECT_EQ(form.fraInput.caption(), "Select metadata records");
    EXPECT_EQ(form.chkCFG.caption(), "Confi&guration file:");
    EXPECT_EQ(form.lblMrSid.caption(), "&Input folder:");
    EXPECT_EQ(form.lblInExt.caption(), "Input file &extension(s):");
    EXPECT_EQ(form.lblAvailable.caption(), "&Available files:");
    EXPECT_EQ(form.lblSelected.caption(), "&Selected files:");
    EXPECT_EQ(form.cmdCreateBatFile.caption(), "Create &Batch File...");
    EXPECT_EQ(form.cmdOK.caption(), "Execute");
    EXPECT_EQ(form.cmdCancel.caption(), "Close");
    for (const Button* const browse :
         {&form.cmdCNS, &form.cmdAliases, &form.cmdCFG, &form.cmdInput}) {
        EXPECT_EQ(browse->caption(), "Browse...");
    }
    std::vector<std::string> moves;
    moves.reserve(form.cmdSelectFiles.size());
    for (const Button& button : form.cmdSelectFiles) {
        moves.push_back(button.caption());
    }
    EXPECT_THAT(moves, ElementsAre(">", ">>", "<", "<<"));
    EXPECT_EQ(form.fraCNS.caption().find_first_not_of(' '), std::string::npos);
    EXPECT_EQ(form.fraMP.caption().find_first_not_of(' '), std::string::npos);
}

std::vector<std::string> entries(const MenuItem& menu) {
    std::vector<std::string> result;
    for (const MenuItem* const item : menu.items()) {
        result.push_back(item->name() + " " + item->caption());
    }
    return result;
}

TEST_F(Layout, The_menus_are_as_given) {
    std::vector<std::string> bar;
    for (const MenuItem* const menu : form.menu()) {
        bar.push_back(menu->name() + " " + menu->caption());
    }
    EXPECT_THAT(bar, ElementsAre("mnuFile &File", "mnuTools &Tools", "mnuHelp &Help"));
    EXPECT_THAT(entries(form.mnuFile),
                ElementsAre("mnuNewINI &New INI File...", "mnuBar3 -",
                            "mnuOpenINI &Open INI File...", "mnuBar1 -",
                            "mnuSaveINI &Save INI File", "mnuSaveAsINI Save INI File &As...",
                            "mnuBar2 -", "mnuExit E&xit"));
    EXPECT_THAT(entries(form.mnuTools), ElementsAre("mnuOptions &Options..."));
    EXPECT_THAT(entries(form.mnuHelp),
                ElementsAre("mnuHelpTarnwick &Tarnwick Help...", "mnuBar4 -",
                            "mnuHelpCNS &CNS Help...", "mnuHelpMP &MP Help...", "mnuBar5 -",
                            "mnuAbout &About Tarnwick..."));
}

} // namespace
} // namespace tarnwick
