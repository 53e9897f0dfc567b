#pragma once

#include "platform/run_time_error.hpp"
#include "support/faulty_files.hpp"
#include "support/hosted_world.hpp"
#include "support/messages.hpp"
#include "support/recording_files.hpp"
#include "support/scripted_desktop.hpp"
#include "ui/dialogs/frm_open_folder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// The folder picker on a machine with two drives, in the folder C:\Work.
struct OpenFolderWorld : testing::Test {
    HostedWorld world{R"(C:\Work)"};
    RecordingFiles recorded{furnished(world).files()};
    FaultyFiles files{recorded};
    ScriptedDesktop desktop;
    frmOpenFolder form{files, desktop, [this](std::string_view prompt, std::string_view title) {
                           questions.push_back(
                               {.prompt = std::string(prompt), .title = std::string(title)});
                           return typedText;
                       }};

    struct Question {
        std::string prompt;
        std::string title;
        bool operator==(const Question&) const = default;
    };
    std::vector<Question> questions; // that the form asked
    std::string typedText;           // the user's answer to each

    static HostedWorld& furnished(HostedWorld& world) {
        world.makeDrive('D');
        for (const char* const folder :
             {R"(C:\Work\A)", R"(C:\Work\b\deep)", R"(C:\other)", R"(D:\Maps\sheets)"}) {
            world.makeFolder(folder);
        }
        world.write(R"(C:\Work\notes.txt)", "");
        return world;
    }

    void show(std::string_view startFolder = {}) {
        form.setStartFolder(startFolder);
        form.measured({.width = 7500, .height = 6000}, {.width = 15360, .height = 11520});
        form.show();
    }

    // The user goes to the path field and types over what is there.
    void type(std::string_view text) {
        form.userMovedFocus(form.txtPath);
        form.txtPath.userSelected(0, static_cast<int>(form.txtPath.text().size()));
        form.txtPath.userTyped(text);
    }

    void openFolder(std::string_view path) {
        const auto& entries = form.DirPath.entries();
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (entries[i].path == path) {
                form.DirPath.userOpened(i);
                return;
            }
        }
        ADD_FAILURE() << path << " is not in the list";
    }

    void pickDrive(std::string_view drive) {
        const auto& drives = form.drvPath.drives();
        for (std::size_t i = 0; i < drives.size(); ++i) {
            if (drives[i] == drive) {
                form.drvPath.userPicked(i);
                return;
            }
        }
        ADD_FAILURE() << drive << " is not in the list";
    }

    static Message invalidFolder() {
        return warning("Invalid Folder!\rPlease enter a valid Folder.", "Warning!");
    }

    static Message report(std::string_view procedure, ErrorNumber number) {
        return errorReport("frmOpenFolder", procedure, number);
    }

    // All three controls agree.
    void expectShown(std::string_view drive, std::string_view path) {
        EXPECT_EQ(form.drvPath.drive(), drive);
        EXPECT_EQ(form.DirPath.path(), path);
        EXPECT_EQ(form.txtPath.text(), path);
    }

    void expectPathSelected() {
        EXPECT_EQ(form.txtPath.selStart(), 0);
        EXPECT_EQ(form.txtPath.selLength(), static_cast<int>(form.txtPath.text().size()));
    }

    // Refused once since the messages were last cleared, and back in the field.
    void expectRefusal() {
        EXPECT_THAT(desktop.messages, testing::ElementsAre(invalidFolder()));
        EXPECT_TRUE(form.visible());
        EXPECT_EQ(form.result(), "");
        EXPECT_EQ(form.focused(), &form.txtPath);
        expectPathSelected();
    }
};

} // namespace tarnwick
