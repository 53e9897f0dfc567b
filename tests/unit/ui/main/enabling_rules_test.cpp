// What can be used when: told a second time, plainly, and compared with the window in every
// combination of boxes, flags and field states, after every event that can change it.
#include "unit/ui/main/main_world.hpp"

#include <array>
#include <map>
#include <random>

namespace tarnwick {
namespace {

enum class Config { Missing, Plain, NamesOutputs };
// What a field that names a folder or a file says.
enum class Named { There, Missing, Blank };
// The entries of a list.
enum class Entries { None, Unmarked, Marked };

struct State {
    bool cns;
    bool mp;
    bool aliases;
    bool cfg;
    Config config;
    Named input;
    Named cnsFolder;
    Named aliasesFile;
    bool anySelected;
};

const char* pathOf(Config config) {
    switch (config) {
    case Config::Missing:
        return R"(D:\no.cfg)";
    case Config::Plain:
        return R"(D:\plain.cfg)";
    case Config::NamesOutputs:
        break;
    }
    return R"(D:\names.cfg)";
}

struct EnablingRules : MainWorld {
    EnablingRules() { form.show(); }

    static std::string text(Named named, const char* there, const char* missing) {
        switch (named) {
        case Named::There:
            return there;
        case Named::Missing:
            return missing;
        case Named::Blank:
            break;
        }
        return "  ";
    }

    void enter(const State& state) {
        BatchDefinition definition = form.definition();
        MyDefaultSettings(definition);
        definition.iProcessCNS = state.cns ? 1 : 0;
        definition.iProcessMP = state.mp ? 1 : 0;
        definition.bUseAliases = state.aliases ? 1 : 0;
        definition.bUseConfigFile = state.cfg ? 1 : 0;
        definition.sConfigFile = pathOf(state.config);
        definition.bCfgNamesOutput = state.cfg && state.config == Config::NamesOutputs;
        definition.sInputFolder = text(state.input, R"(D:\in)", R"(D:\none)");
        definition.sCNSOutputFolder = text(state.cnsFolder, R"(D:\cns)", R"(D:\none)");
        definition.sAliasesFile = text(state.aliasesFile, R"(D:\aliases.txt)", R"(D:\no.txt)");
        form.lstSelected.setItems(state.anySelected ? std::vector<std::string>{"a.met"}
                                                    : std::vector<std::string>());
        form.showDefinition(definition);
    }

    static bool folder(const TextBox& field) {
        return field.text() == R"(D:\in)" || field.text() == R"(D:\cns)";
    }

    void expectRules(const std::string& after) {
        const bool cns = form.chkCNS.value() == 1;
        const bool mp = form.chkMP.value() == 1;
        const bool aliases = form.chkAliases.value() == 1;
        const bool cfg = form.chkCFG.value() == 1;
        const bool cfgExists = form.txtCFG.text() != R"(D:\no.cfg)";
        const bool elsewhere = form.definition().bCfgNamesOutput;
        // A file that is refused is not read: until there is another, what the last one said holds.
        if (!cfg || cfgExists) {
            EXPECT_EQ(elsewhere, cfg && form.txtCFG.text() == R"(D:\names.cfg)") << after;
        }

        const bool run = folder(form.txtInput) && !form.lstSelected.items().empty() &&
                         (cns || mp) && (!cfg || cfgExists) &&
                         (!cns || ((folder(form.txtCNS) || elsewhere) &&
                                   (!aliases || form.txtAliases.text() == R"(D:\aliases.txt)")));
        const std::map<const Control*, bool> expected{
            {&form.lblCNS, cns && !elsewhere},
            {&form.txtCNS, cns && !elsewhere},
            {&form.cmdCNS, cns && !elsewhere},
            {&form.lblCNSExt, cns && !elsewhere},
            {&form.txtCNSExt, cns && !elsewhere},
            {&form.lblCNSFiles, cns && !elsewhere},
            {&form.grdCNS, cns && !elsewhere},
            {&form.chkAliases, cns},
            {&form.txtAliases, cns && aliases},
            {&form.cmdAliases, cns && aliases},
            {&form.lblMPFiles, mp && !elsewhere},
            {&form.grdFiles, mp && !elsewhere},
            {&form.chkfixdoc, mp && !elsewhere},
            {&form.cmdOutputFolder, mp && !elsewhere},
            {&form.txtCFG, cfg},
            {&form.cmdCFG, cfg},
            {&form.cmdOK, run},
            {&form.cmdCreateBatFile, run},
            {&form.cmdSelectFiles[0], form.lstAvailable.selectedCount() > 0},
            {&form.cmdSelectFiles[1], !form.lstAvailable.items().empty()},
            {&form.cmdSelectFiles[2], form.lstSelected.selectedCount() > 0},
            {&form.cmdSelectFiles[3], !form.lstSelected.items().empty()},
        };
        for (const Control* const control : form.controls()) {
            const auto rule = expected.find(control);
            EXPECT_EQ(control->enabled(), rule == expected.end() || rule->second)
                << control->name() << " after " << after;
        }
        EXPECT_EQ(form.lblCNS.caption(),
                  cns && mp ? "CNS &output folder / MP input folder:" : "CNS &output folder:");
        if (cns && elsewhere) {
            EXPECT_EQ(form.txtCNS.text(), "");
            EXPECT_EQ(form.txtCNSExt.text(), "");
        }
    }

    // Glyph and colours of each row say the same.
    static void expectRowsInOneMind(const Grid& grid, const std::string& after) {
        for (int row = 1; row < grid.rows(); ++row) {
            const bool ticked = grid.cell(row, 0).text == "\xFE";
            EXPECT_EQ(grid.cell(row, 0).text, ticked ? "\xFE" : "\xA8") << after;
            EXPECT_EQ(grid.cell(row, 0).fore,
                      ticked ? Colour(Rgb{255, 0, 0}) : Colour(SystemColour::ButtonText))
                << after;
            for (const int column : {2, 3}) {
                EXPECT_EQ(grid.cell(row, column).back,
                          Colour(ticked ? SystemColour::Window : SystemColour::ButtonFace))
                    << after;
            }
        }
    }
};

TEST_F(EnablingRules, Hold_in_every_state_and_after_a_click_on_every_box_in_it) {
    constexpr std::array<Named, 3> named{Named::There, Named::Missing, Named::Blank};
    constexpr unsigned fields = 27; // three fields of three kinds each
    int states = 0;
    for (unsigned bits = 0; bits < 32; ++bits) {
        for (unsigned texts = 0; texts < fields && !HasFailure(); ++texts) {
            for (const Config config : {Config::Missing, Config::Plain, Config::NamesOutputs}) {
                const auto bit = [bits](unsigned place) { return (bits >> place & 1U) != 0; };
                const State state{.cns = bit(0),
                                  .mp = bit(1),
                                  .aliases = bit(2),
                                  .cfg = bit(3),
                                  .config = config,
                                  .input = named.at(texts % 3),
                                  .cnsFolder = named.at(texts / 3 % 3),
                                  .aliasesFile = named.at(texts / 9),
                                  .anySelected = bit(4)};
                for (CheckBox* const box :
                     {&form.chkCNS, &form.chkMP, &form.chkAliases, &form.chkCFG, &form.chkfixdoc}) {
                    enter(state);
                    form.EnableMove();
                    const std::string name = "state " + std::to_string(bits) + " texts " +
                                             std::to_string(texts) + " config " + pathOf(config);
                    expectRules(name);
                    box->userClicked();
                    expectRules(name + " and a click on " + box->name());
                }
                ++states;
            }
        }
    }
    EXPECT_EQ(states, 2592);
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(EnablingRules, The_move_buttons_follow_what_is_in_the_lists_and_what_is_marked_there) {
    form.lstAvailable.GotFocus = nullptr; // which would clear the other list's selection
    form.lstSelected.GotFocus = nullptr;
    const auto fill = [](ListBox& list, Entries entries) {
        list.setItems(entries == Entries::None ? std::vector<std::string>()
                                               : std::vector<std::string>{"a.met", "b.met"});
        if (entries == Entries::Marked) {
            list.userSelected(std::array{1});
        }
    };
    constexpr std::array<Entries, 3> kinds{Entries::None, Entries::Unmarked, Entries::Marked};
    for (const Entries available : kinds) {
        for (const Entries selected : kinds) {
            fill(form.lstAvailable, available);
            fill(form.lstSelected, selected);
            form.EnableMove();
            std::vector<bool> enabled;
            enabled.reserve(form.cmdSelectFiles.size());
            for (const Button& button : form.cmdSelectFiles) {
                enabled.push_back(button.enabled());
            }
            EXPECT_THAT(enabled, testing::ElementsAre(
                                     available == Entries::Marked, available != Entries::None,
                                     selected == Entries::Marked, selected != Entries::None));
        }
    }
}

// The two groups look at the configuration file in two ways: that of CNS at what was found in it,
// that of MP also at whether it is used.
TEST_F(EnablingRules, Outputs_that_an_unused_configuration_file_names_are_taken_from_CNS_alone) {
    form.userClicked(form.chkCNS);
    form.txtCNS.setText(R"(D:\cns)");
    desktop.chosenFiles = {R"(D:\names.cfg)"};
    form.cmdCFG.Click(); // as if somebody were quicker than the box
    ASSERT_FALSE(form.chkCFG.ticked());
    ASSERT_TRUE(form.definition().bCfgNamesOutput);
    for (const Control* const control :
         std::initializer_list<Control*>{&form.lblCNS, &form.txtCNS, &form.cmdCNS, &form.lblCNSExt,
                                         &form.txtCNSExt, &form.lblCNSFiles, &form.grdCNS}) {
        EXPECT_FALSE(control->enabled()) << control->name();
    }
    EXPECT_EQ(form.txtCNS.text(), "");
    for (const Control* const control :
         std::initializer_list<Control*>{&form.lblMPFiles, &form.grdFiles, &form.chkfixdoc,
                                         &form.cmdOutputFolder, &form.chkAliases}) {
        EXPECT_TRUE(control->enabled()) << control->name();
    }
    // No folder of CNS is needed then.
    listRecords();
    form.userClicked(form.cmdSelectFiles[1]);
    EXPECT_TRUE(form.cmdOK.enabled());
}

// The same walk for the same number.
std::mt19937 walkFrom(unsigned seed) {
    return std::mt19937(seed);
}

// A person who does this and that, at random.
TEST_F(EnablingRules, Hold_after_every_event_of_long_random_walks) {
    std::mt19937 random = walkFrom(20261);
    const auto below = [&random](std::size_t bound) {
        return static_cast<std::size_t>(random() % bound);
    };
    const auto typeInto = [&](TextBox& field, std::initializer_list<const char*> texts) {
        const std::string text = texts.begin()[below(texts.size())];
        form.userMovedFocus(field);
        if (form.focused() == &field) {
            field.userSelected(0, static_cast<int>(field.text().size()));
            field.userTyped(text);
        }
        return field.name() + " = " + text;
    };
    const auto leaveFields = [&](const std::string& done) {
        form.userMovedFocus(form.chkMP);
        return done;
    };
    const auto browse = [&](Button& button, const char* chosen) {
        pickedFolders = {chosen};
        desktop.chosenFiles = {chosen};
        form.userClicked(button);
        return button.name() + " = " + chosen;
    };
    const std::vector<std::function<std::string()>> events_{
        [&] { return form.userClicked(form.chkCNS), "chkCNS"; },
        [&] { return form.userClicked(form.chkMP), "chkMP"; },
        [&] { return form.userClicked(form.chkAliases), "chkAliases"; },
        [&] { return form.userClicked(form.chkCFG), "chkCFG"; },
        [&] { return form.userClicked(form.chkfixdoc), "chkfixdoc"; },
        [&] { return leaveFields(typeInto(form.txtInput, {R"(D:\in)", R"(D:\in)", ""})); },
        [&] { return leaveFields(typeInto(form.txtInExt, {"*.met", "*.txt", "", "*.none"})); },
        [&] { return leaveFields(typeInto(form.txtCNS, {R"(D:\cns)", ""})); },
        [&] { return leaveFields(typeInto(form.txtAliases, {R"(D:\aliases.txt)", ""})); },
        [&] { return leaveFields(typeInto(form.txtCFG, {R"(D:\plain.cfg)", R"(D:\names.cfg)"})); },
        [&] {
            select(form.lstAvailable,
                   form.lstAvailable.items().empty() ? std::vector<int>() : std::vector<int>{0});
            return "marking available";
        },
        [&] {
            select(form.lstSelected,
                   form.lstSelected.items().empty() ? std::vector<int>() : std::vector<int>{0});
            return "marking selected";
        },
        [&] {
            form.userClicked(form.cmdSelectFiles.at(below(4)));
            return "moving";
        },
        [&] { return click(form.grdFiles, 1 + static_cast<int>(below(7)), 0), "MP box"; },
        [&] { return click(form.grdCNS, 1 + static_cast<int>(below(2)), 0), "CNS box"; },
        [&] {
            desktop.chosenFiles = {R"(D:\walk.ini)"};
            desktop.answers = {MessageAnswer::No};
            form.mnuSaveAsINI.userClicked();
            desktop.chosenFiles = {R"(D:\walk.ini)"};
            form.mnuOpenINI.userClicked();
            return "saving and opening";
        },
        [&] {
            desktop.chosenFiles = {R"(D:\new.ini)"};
            desktop.answers = {MessageAnswer::No};
            form.mnuNewINI.userClicked();
            return "new";
        },
        // A field that is refused keeps the focus: whatever is done next is done from there.
        [&] { return leaveFields(typeInto(form.txtInput, {R"(D:\none)"})); },
        [&] { return leaveFields(typeInto(form.txtCNS, {R"(D:\none)"})); },
        [&] { return leaveFields(typeInto(form.txtAliases, {R"(D:\no.txt)"})); },
        [&] { return leaveFields(typeInto(form.txtCFG, {R"(D:\no.cfg)"})); },
        [&] { return browse(form.cmdInput, R"(D:\in)"); },
        [&] { return browse(form.cmdCNS, R"(D:\cns)"); },
        [&] { return browse(form.cmdAliases, R"(D:\aliases.txt)"); },
        [&] { return browse(form.cmdCFG, below(2) == 0 ? R"(D:\plain.cfg)" : R"(D:\names.cfg)"); },
        [&] { return browse(form.cmdOutputFolder, R"(D:\out)"); },
        [&] { return browse(form.cmdCreateBatFile, R"(D:\kept.bat)"); },
        [&] { return form.userClicked(form.cmdOK), "Execute"; },
        [&] { return form.mnuOptions.userClicked(), "options"; },
        [&] { return form.cboLanguage.userPicked(below(3)), "language"; },
        [&] { return form.lstAvailable.userDoubleClicked(), "taking one"; },
        [&] { return form.lstSelected.userDoubleClicked(), "giving one back"; },
    };
    form.txtCFG.setText(R"(D:\plain.cfg)"); // the walk knows the files by their names
    form.EnableMove();
    for (int step = 0; step < 6000 && !HasFailure(); ++step) {
        const std::string done = events_[below(events_.size())]();
        const std::string after = "step " + std::to_string(step) + ", " + done;
        expectRules(after);
        expectRowsInOneMind(form.grdFiles, after);
        expectRowsInOneMind(form.grdCNS, after);
    }
    // It has been everywhere.
    EXPECT_FALSE(interpreter.started.empty());
    EXPECT_FALSE(picks.empty());
    EXPECT_GT(optionsShown, 0);
    EXPECT_THAT(desktop.messages, testing::Contains(testing::Field(&Message::title, "Warning")));
}

} // namespace
} // namespace tarnwick
