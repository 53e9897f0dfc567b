#include "contract/contract_fixture.hpp"
#include "contract/runner_platform.hpp"
#include "platform/kept_output.hpp"
#include "support/eventually.hpp"

#include <thread>

namespace tarnwick {
namespace {

class ToolProcessesContract : public ContractTest {
  protected:
    // A call of the stand-in for a tool, in the scratch folder.
    [[nodiscard]] ToolCall call(std::vector<std::string> arguments) const {
        return {.program = runner->program("tool_stub"),
                .arguments = std::move(arguments),
                .folder = platform->libraryPath(platform->scratch()),
                .timeLimit = {}};
    }
    [[nodiscard]] ToolEnd run(std::vector<std::string> arguments) const {
        return tools->run(call(std::move(arguments)));
    }
    // The process that has written its number into that file.
    [[nodiscard]] unsigned long processIn(std::string_view name) const {
        return exists(name) ? std::stoul(get(name)) : 0;
    }
    [[nodiscard]] bool ends(std::string_view name) const {
        return eventually([&] { return !runner->isAtWork(processIn(name)); });
    }
    std::unique_ptr<RunnerPlatform> runner = makeRunnerPlatform(*platform);
    std::unique_ptr<ToolProcesses> tools = makeToolProcesses();
};

// What has become of a call, without the time that it took.
MATCHER_P2(EndedBy, kind, code, "") {
    *result_listener << "kind " << static_cast<int>(arg.kind) << ", code " << arg.code << ", said "
                     << arg.said;
    return arg.kind == kind && arg.code == code && arg.seconds >= 0;
}

TEST_F(ToolProcessesContract, A_tool_ends_with_its_status) {
    for (const int status : {0, 1, 7, 255}) {
        const ToolEnd end = run({"status", std::to_string(status)});
        EXPECT_THAT(end, EndedBy(ToolEnd::Kind::Exited, status));
        EXPECT_EQ(end.said, "");
    }
}

TEST_F(ToolProcessesContract, What_a_tool_says_on_both_streams_is_kept_in_its_order) {
    const ToolEnd end = run({"both"});
    EXPECT_THAT(end, EndedBy(ToolEnd::Kind::Exited, 0));
    EXPECT_EQ(end.said, "out error out again");
}

TEST_F(ToolProcessesContract, Of_much_that_a_tool_says_the_beginning_and_the_end_are_kept) {
    std::string all;
    while (all.size() < 4'000'000) {
        all += "line by line by ";
    }
    const ToolEnd end = run({"say", std::to_string(all.size() / 16), "line by line by "});
    EXPECT_THAT(end, EndedBy(ToolEnd::Kind::Exited, 0));
    EXPECT_TRUE(end.said == all.substr(0, keptOutput) + "\n[bytes left out: " +
                                std::to_string(all.size() - 2 * keptOutput) + "]\n" +
                                all.substr(all.size() - keptOutput))
        << end.said.size() << " bytes";
}

TEST_F(ToolProcessesContract, Every_argument_arrives_as_it_is) {
    const std::vector<std::string> arguments{
        "100%",      "%PATH%", "a^b",       "a & b",      "!now!",      "\"",
        "say \"x\"", "",       R"(\)",      R"(C:\a b\)", R"(a\\"b\")", R"(\\server\share\)",
        " ",         "\t",     "*",         "?",          "tool_*",     "'a b'",
        "$HOME",     "`x`",    "a;b|c>d<e", "(x)",        "@file",      "caf\xE9 \xDC",
        ""};
    std::vector<std::string> words{"echo"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::string expected;
    for (const std::string& argument : arguments) {
        expected += argument + '\n';
    }
    EXPECT_EQ(run(words).said, expected);
}

TEST_F(ToolProcessesContract, A_long_argument_arrives_whole) {
    const std::string argument(20'000, 'x');
    EXPECT_EQ(run({"echo", argument, "end"}).said, argument + "\nend\n");
}

TEST_F(ToolProcessesContract, A_tool_works_in_its_folder) {
    files.createFolder(in("some where"));
    ToolCall there = call({"make", "made.txt"});
    there.folder = platform->libraryPath(in("some where"));
    EXPECT_THAT(tools->run(there), EndedBy(ToolEnd::Kind::Exited, 0));
    EXPECT_EQ(get("some where\\made.txt"), "made");
}

TEST_F(ToolProcessesContract, A_tool_has_nothing_to_read) {
    EXPECT_EQ(run({"read"}).said, "0");
}

TEST_F(ToolProcessesContract, A_tool_that_crashes_has_ended) {
    const ToolEnd expected = runner->endOfCrash();
    EXPECT_THAT(run({"crash"}), EndedBy(expected.kind, expected.code));
}

TEST_F(ToolProcessesContract, A_tool_is_ended_when_its_time_is_over) {
    ToolCall stays = call({"stay", "process"});
    stays.timeLimit = 0.2;
    const ToolEnd end = tools->run(stays);
    EXPECT_THAT(end, EndedBy(ToolEnd::Kind::TimedOut, 0));
    EXPECT_GE(end.seconds, 0.2);
    EXPECT_TRUE(ends("process"));
}

TEST_F(ToolProcessesContract, A_tool_that_goes_on_speaking_is_ended_as_well) {
    ToolCall speaks = call({"say_for_ever"});
    speaks.timeLimit = 0.2;
    EXPECT_THAT(tools->run(speaks), EndedBy(ToolEnd::Kind::TimedOut, 0));
}

TEST_F(ToolProcessesContract, A_tool_that_has_time_enough_is_let_be) {
    ToolCall short_ = call({"status", "3"});
    for (const double seconds : {3600.0, 1e9, 1e300}) {
        short_.timeLimit = seconds;
        EXPECT_THAT(tools->run(short_), EndedBy(ToolEnd::Kind::Exited, 3)) << seconds;
    }
}

TEST_F(ToolProcessesContract, What_a_tool_leaves_behind_is_ended_with_it) {
    const ToolEnd end = run({"leave_one", "process"});
    EXPECT_THAT(end, EndedBy(ToolEnd::Kind::Exited, 0));
    EXPECT_EQ(end.said, "left one"); // though the one that was left can still write
    EXPECT_NE(processIn("process"), 0UL);
    EXPECT_TRUE(ends("process"));
}

TEST_F(ToolProcessesContract, Tools_at_once_say_each_their_own) {
    std::vector<std::string> said(8);
    {
        std::vector<std::jthread> slots;
        slots.reserve(said.size());
        for (std::size_t i = 0; i < said.size(); ++i) {
            slots.emplace_back([&, i] {
                for (int time = 0; time < 3; ++time) {
                    said[i] += run({"echo", std::to_string(i)}).said;
                }
            });
        }
    }
    for (std::size_t i = 0; i < said.size(); ++i) {
        const std::string line = std::to_string(i) + '\n';
        EXPECT_EQ(said[i], line + line + line);
    }
}

TEST_F(ToolProcessesContract, A_halt_ends_every_tool_with_all_that_it_has_started) {
    std::vector<ToolEnd> ended(8);
    const auto name = [](std::string_view what, std::size_t i) {
        return std::string(what) + std::to_string(i);
    };
    {
        std::vector<std::jthread> slots;
        slots.reserve(ended.size());
        for (std::size_t i = 0; i < ended.size(); ++i) {
            slots.emplace_back([&, i] {
                ended[i] = run({"stay_with_another", name("tool", i), name("child", i)});
            });
        }
        for (std::size_t i = 0; i < ended.size(); ++i) {
            EXPECT_TRUE(
                eventually([&] { return exists(name("tool", i)) && exists(name("child", i)); }));
        }
        tools->halt();
    }
    for (std::size_t i = 0; i < ended.size(); ++i) {
        EXPECT_THAT(ended[i], EndedBy(ToolEnd::Kind::Halted, 0));
        EXPECT_TRUE(ends(name("tool", i)));
        EXPECT_TRUE(ends(name("child", i)));
    }
}

TEST_F(ToolProcessesContract, After_a_halt_no_tool_is_started) {
    tools->halt();
    for (int time = 0; time < 2; ++time) {
        EXPECT_THAT(run({"make", "made.txt"}), EndedBy(ToolEnd::Kind::Halted, 0));
    }
    tools->halt();
    EXPECT_FALSE(exists("made.txt"));
}

TEST_F(ToolProcessesContract, What_cannot_be_started_is_told_by_the_error_of_the_system) {
    put("text.exe", "no program");
    files.createFolder(in("folder.exe"));
    const std::string folder = platform->libraryPath(platform->scratch());
    for (const std::string_view name :
         {"/missing.exe", "/text.exe", "/folder.exe", "/missing/tool", "/text.exe/tool", ""}) {
        ToolCall wrong = call({"status", "0"});
        wrong.program = name.empty() ? "" : folder + std::string(name);
        const ToolEnd end = tools->run(wrong);
        EXPECT_EQ(end.kind, ToolEnd::Kind::NotStarted) << name;
        EXPECT_NE(end.code, 0) << name;
        EXPECT_EQ(end.said, "") << name;
    }
}

TEST_F(ToolProcessesContract, A_tool_is_not_started_without_its_folder) {
    put("file");
    for (const std::string_view name : {"missing", "file"}) {
        ToolCall nowhere = call({"status", "0"});
        nowhere.folder = platform->libraryPath(in(name));
        const ToolEnd end = tools->run(nowhere);
        EXPECT_EQ(end.kind, ToolEnd::Kind::NotStarted) << name;
        EXPECT_NE(end.code, 0) << name;
    }
}

TEST_F(ToolProcessesContract, An_argument_that_cannot_be_given_keeps_the_tool_from_being_started) {
    const ToolEnd end = run({"make", std::string("made\0txt", 8)});
    EXPECT_EQ(end.kind, ToolEnd::Kind::NotStarted);
    EXPECT_NE(end.code, 0);
    EXPECT_FALSE(exists("made"));
}

TEST_F(ToolProcessesContract, When_this_process_is_killed_no_tool_is_left) {
    const auto killed =
        runner->start(runner->program("runner_stub"), {"run_tools", runner->program("tool_stub"),
                                                       platform->libraryPath(platform->scratch())});
    for (const std::string_view name : {"first", "second", "third"}) {
        ASSERT_TRUE(eventually([&] { return exists(name); })) << name;
        EXPECT_TRUE(runner->isAtWork(processIn(name))) << name;
    }
    killed->kill();
    for (const std::string_view name : {"first", "second", "third"}) {
        EXPECT_TRUE(ends(name)) << name;
    }
}

} // namespace
} // namespace tarnwick
