#pragma once

#include "processing/unattended_mode.hpp"
#include "support/fake_clock.hpp"
#include "support/fake_command_interpreter.hpp"
#include "support/hosted_world.hpp"
#include "support/messages.hpp"
#include "support/scripted_desktop.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tarnwick {

// A machine with the tools, two records and a stored definition that runs both tools over them.
class UnattendedWorld : public testing::Test {
  protected:
    UnattendedWorld() {
        MyDefaultSettings(definition);
        definition.sAppFolder = "C:\\app\\";
        definition.sTempFolder = "C:\\temp\\";
        definition.sINIFile = "C:\\app\\TARNWICK.ini";
        world.makeDrive('D');
        for (const char* folder : {"C:\\temp", "D:\\meta\\in", "D:\\cns", "D:\\out", "D:\\other"}) {
            world.makeFolder(folder);
        }
        for (const char* file :
             {"C:\\app\\mp.exe", "C:\\app\\cns.exe", "D:\\meta\\in\\b.met", "D:\\meta\\in\\a.met",
              "D:\\meta\\in\\c.txt", "D:\\other\\z.met", "D:\\other\\y.sgm"}) {
            world.write(file, "");
        }
        storeDefinition("");
    }

    void storeDefinition(std::string_view changes) {
        world.write("C:\\batch.ini", "MP EXECUTABLE=C:\\app\\mp.exe\r\n"
                                     "CNS EXECUTABLE=C:\\app\\cns.exe\r\n"
                                     "Process MP=1\r\nProcess CNS=1\r\n"
                                     "Input Folder=D:\\meta\\in\r\nInput File Extension=*.met\r\n"
                                     "CNS Output Folder=D:\\cns\r\nGRID_Error=D:\\out\r\n" +
                                         std::string(changes));
    }

    UnattendedResult run(std::string_view text) {
        return RunCommandLine(definition,
                              {.files = *files,
                               .desktop = desktop,
                               .interpreter = interpreter,
                               .events = events,
                               .showHelp = [this] { ++helpShown; },
                               .showOptions = [this] { ++optionsShown; }},
                              text);
    }

    // Nothing was started, and nothing was written into the temporary folder.
    void expectNothingDone(std::string_view text) {
        EXPECT_EQ(run(text), UnattendedResult::NothingStarted);
        EXPECT_THAT(interpreter.started, testing::IsEmpty());
        EXPECT_THAT(world.files().listFiles("C:\\temp", "").names, testing::IsEmpty());
    }
    void expectOnlyHelp(std::string_view text) {
        expectNothingDone(text);
        EXPECT_EQ(helpShown, 1);
        EXPECT_THAT(desktop.messages, testing::IsEmpty());
    }
    void expectWarning(std::string_view text, std::string_view warningText) {
        expectNothingDone(text);
        EXPECT_THAT(desktop.messages, testing::ElementsAre(warning(warningText)));
        EXPECT_EQ(helpShown, 0);
    }
    std::string batchOf(std::string_view text) {
        EXPECT_EQ(run(text), UnattendedResult::BatchStarted);
        EXPECT_THAT(desktop.messages, testing::IsEmpty());
        EXPECT_EQ(interpreter.started.size(), 1U);
        return interpreter.started.empty() ? "" : interpreter.started.front().content;
    }

    HostedWorld world;
    Files* files = &world.files();
    ScriptedDesktop desktop;
    FakeCommandInterpreter interpreter{world.files()};
    FakeClock clock;
    FakePendingEvents events{clock};
    BatchDefinition definition;
    int helpShown = 0;
    int optionsShown = 0;
};

} // namespace tarnwick
