#pragma once

#include "common/mod_main.hpp"
#include "definition/stored_settings.hpp"
#include "platform/run_time_error.hpp"
#include "support/fake_clock.hpp"
#include "support/fake_command_interpreter.hpp"
#include "support/fake_process.hpp"
#include "support/faulty_files.hpp"
#include "support/hosted_world.hpp"
#include "support/memory_settings_store.hpp"
#include "support/messages.hpp"
#include "support/scripted_desktop.hpp"
#include "ui/forms/keys.hpp"
#include "ui/main/frm_main.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarnwick {

inline Message plain(std::string_view text) {
    return {.text = std::string(text), .title = "Tarnwick"};
}

inline Message saveQuestion(std::string_view iniFile) {
    return {.text =
                "Do you want to save the changes you made to \r\n\"" + std::string(iniFile) + "\"?",
            .title = "Tarnwick",
            .icon = MessageIcon::None,
            .buttons = MessageButtons::YesNo};
}

inline Message report(std::string_view procedure, int number, std::string_view description,
                      int lastDllError = 0) {
    return errorReport("frmMain", procedure, number, description, lastDllError);
}

// A view that cannot show anything: the way to break a procedure that touches nothing but controls.
class BrokenView : public View {
  public:
    explicit BrokenView(Control& control) : control_(control) { control_.attach(*this); }
    BrokenView(const BrokenView&) = delete;
    BrokenView& operator=(const BrokenView&) = delete;
    ~BrokenView() override { control_.detach(); }

    void changed(Property /*property*/) override { throw RunTimeError(ErrorNumber::DeviceIO); }

  private:
    Control& control_;
};

// The main window on a machine of its own, with both tools beside the program, three records in
// D:\in and folders for the outputs.
struct MainWorld : testing::Test {
    HostedWorld world;
    FaultyFiles files{world.files()};
    ScriptedDesktop desktop;
    FakeClock clock;
    FakePendingEvents events{clock};
    FakeCommandInterpreter interpreter{files};
    FakeProcess process;
    MemorySettingsStore settings;

    struct Pick {
        std::string title;
        std::string startFolder;
        bool operator==(const Pick&) const = default;
    };
    std::vector<Pick> picks;
    std::deque<std::string> pickedFolders; // the script of the folder picker
    int optionsShown = 0;
    std::function<void(BatchDefinition&)> inOptions; // what the user does there
    int aboutShown = 0;

    MainServices services{
        .files = files,
        .desktop = desktop,
        .interpreter = interpreter,
        .events = events,
        .clock = clock,
        .process = process,
        .settings = settings,
        .pickFolder =
            [this](std::string_view title, std::string_view startFolder) {
                picks.push_back({std::string(title), std::string(startFolder)});
                if (pickedFolders.empty()) {
                    ADD_FAILURE() << "nobody expected the folder picker";
                    return std::string();
                }
                std::string picked = std::move(pickedFolders.front());
                pickedFolders.pop_front();
                return picked;
            },
        .showOptions =
            [this](BatchDefinition& definition) {
                ++optionsShown;
                if (inOptions) {
                    inOptions(definition);
                }
            },
        .showAbout = [this] { ++aboutShown; },
    };
    frmMain form{services};

    MainWorld() {
        process.givenProgramFolder = R"(C:\App)";
        process.variables["TEMP"] = R"(C:\Temp)";
        world.makeFolder(R"(C:\Temp)");
        world.write(R"(C:\App\mp.exe)", "");
        world.write(R"(C:\App\cns.exe)", "");
        world.makeDrive('D');
        for (const char* const record : {"a.met", "b.met", "c.txt"}) {
            world.write(std::string(R"(D:\in\)") + record, "");
        }
        for (const char* const folder :
             {R"(D:\out)", R"(D:\cns)", R"(D:\empty)", R"(D:\in\deep)"}) {
            world.makeFolder(folder);
        }
        world.write(R"(D:\aliases.txt)", "");
        world.write(R"(D:\plain.cfg)", "indent\r\n");
        world.write(R"(D:\names.cfg)", "input\r\n  OutPut \r\n");
        form.measured({.width = 12735, .height = 8460}, {.width = 15360, .height = 11520});
    }

    static constexpr const char* defaultIni = R"(C:\App\TARNWICK.ini)";

    // The user goes to the field and types over what is there.
    void type(TextBox& field, std::string_view text) {
        form.userMovedFocus(field);
        ASSERT_EQ(form.focused(), &field) << field.name();
        field.userSelected(0, static_cast<int>(field.text().size()));
        field.userTyped(text);
    }
    // For a control that is always there and is not Close.
    void leave() { form.userMovedFocus(form.chkMP); }

    // Through a cell's middle.
    void click(Grid& grid, int row, int column) {
        const Bounds cell = grid.cellBounds(row, column);
        grid.userClicked(cell.left + cell.width / 2, cell.top + cell.height / 2);
    }

    // The user lists the records.
    void listRecords(std::string_view extensions = "") {
        type(form.txtInput, R"(D:\in)");
        if (!extensions.empty()) {
            type(form.txtInExt, extensions);
        }
        leave();
    }
    void select(ListBox& list, std::vector<int> indices) { list.userSelected(indices); }

    [[nodiscard]] bool changed() { return form.definition().bSettingsChanged; }
    // As after a save.
    void forgetChanges() {
        BatchDefinition definition = form.definition();
        definition.bSettingsChanged = false;
        form.showDefinition(definition);
    }

    void expectRefusal(const TextBox& field, std::string_view message) {
        EXPECT_THAT(desktop.messages, testing::ElementsAre(warning(message)));
        EXPECT_EQ(form.focused(), &field);
        EXPECT_EQ(field.selStart(), 0);
        EXPECT_EQ(field.selLength(), static_cast<int>(field.text().size()));
    }
};

} // namespace tarnwick
