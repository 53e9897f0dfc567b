// What can be used when: told a second time, plainly, and compared with the window in every
// combination of boxes, flags and field states, after every event that can change it.
#include "unit/ui/main/main_world.hpp"

#include <map>
#include <random>

namespace tarnwick {
namespace {

enum class Config { Missing, Plain, NamesOutputs };

struct State {
    bool cns;
    bool mp;
    bool aliases;
    bool cfg;
    Config config;
    bool inputExists;
    bool anySelected;
    bool cnsFolderExists;
    bool aliasesExist;
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

    // Field texts that are neither there nor blank, and blank ones, in turn.
    std::string missing(const char* text) { return ++turn % 2 == 0 ? text : "  "; }
    int turn = 0;

    void enter(const State& state) {
        BatchDefinition definition = form.definition();
        MyDefaultSettings(definition);
        definition.iProcessCNS = state.cns ? 1 : 0;
        definition.iProcessMP = state.mp ? 1 : 0;
        definition.bUseAliases = state.aliases ? 1 : 0;
        definition.bUseConfigFile = state.cfg ? 1 : 0;
        definition.sConfigFile = pathOf(state.config);
        definition.bCfgNamesOutput = state.cfg && state.config == Config::NamesOutputs;
        definition.sInputFolder = state.inputExists ? R"(D:\in)" : missing(R"(D:\none)");
        definition.sCNSOutputFolder = state.cnsFolderExists ? R"(D:\cns)" : missing(R"(D:\none)");
        definition.sAliasesFile =
            state.aliasesExist ? R"(D:\aliases.txt)" : missing(R"(D:\no.txt)");
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
        EXPECT_EQ(elsewhere, cfg && form.txtCFG.text() == R"(D:\names.cfg)") << after;

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
};

TEST_F(EnablingRules, Hold_in_every_state_and_after_a_click_on_every_box_in_it) {
    int states = 0;
    for (unsigned bits = 0; bits < 256; ++bits) {
        for (const Config config : {Config::Missing, Config::Plain, Config::NamesOutputs}) {
            const auto bit = [bits](unsigned place) { return (bits >> place & 1U) != 0; };
            const State state{.cns = bit(0),
                              .mp = bit(1),
                              .aliases = bit(2),
                              .cfg = bit(3),
                              .config = config,
                              .inputExists = bit(4),
                              .anySelected = bit(5),
                              .cnsFolderExists = bit(6),
                              .aliasesExist = bit(7)};
            for (CheckBox* const box :
                 {&form.chkCNS, &form.chkMP, &form.chkAliases, &form.chkCFG, &form.chkfixdoc}) {
                enter(state);
                form.EnableMove();
                const std::string name =
                    "state " + std::to_string(bits) + " config " + pathOf(config);
                expectRules(name);
                box->userClicked();
                expectRules(name + " and a click on " + box->name());
            }
            ++states;
            if (HasFailure()) {
                return;
            }
        }
    }
    EXPECT_EQ(states, 768);
    EXPECT_TRUE(desktop.messages.empty());
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
    };
    form.txtCFG.setText(R"(D:\plain.cfg)"); // the walk knows the files by their names
    form.EnableMove();
    for (int step = 0; step < 3000 && !HasFailure(); ++step) {
        const std::string done = events_[below(events_.size())]();
        expectRules("step " + std::to_string(step) + ", " + done);
    }
}

} // namespace
} // namespace tarnwick
