#include "runner/call_text.hpp"
#include "runner/console.hpp"
#include "runner/progress_line.hpp"
#include "runner/visible_text.hpp"
#include "unit/runner/runner_world.hpp"

#include <gmock/gmock.h>

namespace tarnwick {
namespace {

using testing::IsEmpty;

TEST(VisibleText, Shows_by_its_number_what_acts_on_a_terminal) {
    EXPECT_EQ(visibleText("plain, with blanks"), "plain, with blanks");
    EXPECT_EQ(visibleText("\x1B[31m\r\n\b"), "<U+001B>[31m<U+000D><U+000A><U+0008>");
    EXPECT_EQ(visibleText(std::string_view("\0\x7F", 2)), "<U+0000><U+007F>");
    EXPECT_EQ(visibleText("a\tb"), "a b");
}

TEST(VisibleText, Of_what_a_tool_says_is_the_last_line_that_is_not_blank) {
    EXPECT_EQ(lastLineOf("first\nsecond\r\n\r\n  \n"), "second");
    EXPECT_EQ(lastLineOf("  only "), "only");
    EXPECT_EQ(lastLineOf("progress\rdone"), "done");
    EXPECT_EQ(lastLineOf(""), "");
    EXPECT_EQ(lastLineOf(" \n\t\r\n"), "");
    EXPECT_EQ(lastLineOf(std::string(100'000, 'x'), 10), "xxxxxxx...");
}

TEST(VisibleText, Is_shortened_at_its_end) {
    EXPECT_EQ(shortened("abcdef", 6), "abcdef");
    EXPECT_EQ(shortened("abcdefg", 6), "abc...");
    EXPECT_EQ(shortened("abcdefg", 2), "..");
    EXPECT_EQ(shortened("abc", 0), "");
}

TEST(ProgressLine, Says_how_far_a_run_is) {
    const Progress progress{.done = 50,
                            .all = 200,
                            .failed = 3,
                            .seconds = 100,
                            .inWork = {"a.met", "b.met"},
                            .ending = false};
    EXPECT_EQ(progressLine(progress, 100),
              "[=====>              ]  50/200  3 failed  0.5/s  5 min 0 s left  a.met, b.met");
    EXPECT_EQ(progressLine(progress, 68),
              "[=====>              ]  50/200  3 failed  0.5/s  5 min 0 s left");
    EXPECT_EQ(progressLine(progress, 42), "[=====>              ]  50/200  3 failed");
    EXPECT_EQ(progressLine(progress, 20), "50/200  3 failed");
    EXPECT_EQ(progressLine(progress, 6), "50/200");
    EXPECT_EQ(progressLine(progress, 5), "50...");
}

TEST(ProgressLine, Is_never_wider_than_the_terminal) {
    const Progress progress{.done = 123'456,
                            .all = 1'000'000,
                            .failed = 99,
                            .seconds = 4321,
                            .inWork = {std::string(300, 'n') + ".met", "\x1B[2J.met"},
                            .ending = false};
    for (std::size_t width = 0; width < 300; ++width) {
        EXPECT_LE(progressLine(progress, width).size(), width);
    }
}

TEST(ProgressLine, Tells_times_as_people_do) {
    EXPECT_EQ(durationText(0.26), "0.3 s");
    EXPECT_EQ(durationText(5), "5.0 s");
    EXPECT_EQ(durationText(59.4), "59 s");
    EXPECT_EQ(durationText(125), "2 min 5 s");
    EXPECT_EQ(durationText(3 * 3600 + 125), "3 h 2 min");
    EXPECT_EQ(durationText(-1), "0.0 s");
}

const ToolCall call{.program = "/opt/my tools/mp",
                    .arguments = {"-l", "en", "it's", "", "a&b", "$HOME", "/out/a.html"},
                    .folder = "/srv/in",
                    .timeLimit = {}};

TEST(CallText, Is_taken_by_a_shell_as_it_stands) {
    EXPECT_EQ(shellLine(call),
              R"('/opt/my tools/mp' -l en 'it'\''s' '' 'a&b' '$HOME' /out/a.html)");
    EXPECT_EQ(
        shellLine(std::vector<ToolCall>{
            call, {.program = "/mp", .arguments = {"-"}, .folder = "/srv/in", .timeLimit = {}}}),
        "cd /srv/in && " + shellLine(call) + " && /mp -");
}

TEST(CallText, In_JSON_has_no_byte_that_ends_a_text) {
    EXPECT_EQ(jsonLine("a\"\\\n\xFF.met", {{.program = "/mp",
                                            .arguments = {"-l", "\xC3\xA9"},
                                            .folder = "/in",
                                            .timeLimit = {}}}),
              "{\"record\":\"a\\\"\\\\\\u000a\xEF\xBF\xBD.met\",\"calls\":[{\"program\":\"/mp\","
              "\"arguments\":[\"-l\",\"\xC3\xA9\"],\"folder\":\"/in\"}]}");
    EXPECT_EQ(jsonLine("a", {}), R"({"record":"a","calls":[]})");
}

class WhatTheUserSees : public testing::Test {
  protected:
    Console console(ConsoleStyle style = {}) {
        return {terminal_, clock_, style, "/srv/night.state/run.log"};
    }
    static RecordOutcome failed(const std::string& record) {
        RecordOutcome outcome;
        outcome.record = record;
        outcome.why = "MP ended with status 2: no such";
        return outcome;
    }
    void plan(Console& console, std::uint32_t records) {
        Plan plan;
        for (std::uint32_t record = 0; record < records; ++record) {
            plan.toRun.push_back({.record = record, .reason = {}});
        }
        console.planned(job_, products_, plan);
    }
    static Products noProducts() {
        const HostedWorld world;
        KnownFolders folders(world.files());
        return {BatchDefinition(), folders};
    }

    RecordingTerminal terminal_;
    FakeRunClock clock_;
    Job job_;
    Products products_ = noProducts();
};

TEST_F(WhatTheUserSees, Failures_scroll_by_above_the_line_at_the_bottom) {
    terminal_.terminal = true;
    auto shown = console({.colour = Colour::Never});
    plan(shown, 2);
    EXPECT_EQ(terminal_.error, "\r\x1B[K[>                   ]  0/2  0 failed");
    terminal_.error.clear();
    clock_.now += 1;
    shown.finished(failed("a.met"));
    EXPECT_EQ(terminal_.error, "\r\x1B[KFAILED a.met: MP ended with status 2: no such\n"
                               "\r\x1B[K[==========>         ]  1/2  1 failed  1.0/s  1.0 s left");
    terminal_.error.clear();
    RunSummary summary;
    summary.made = 1;
    summary.failed = 1;
    summary.upToDate = 4;
    summary.seconds = 2;
    shown.ended(summary);
    EXPECT_EQ(terminal_.error, "\r\x1B[K");
    EXPECT_EQ(terminal_.output, "1 made, 1 failed, 4 up to date, in 2.0 s.\n"
                                "The log is /srv/night.state/run.log\n");
}

TEST_F(WhatTheUserSees, Without_a_terminal_a_line_comes_every_ten_seconds) {
    auto shown = console();
    plan(shown, 100);
    for (int second = 0; second < 25; ++second) {
        clock_.now += 1;
        shown.idle();
    }
    EXPECT_EQ(terminal_.error, "[>                   ]  0/100  0 failed\n"
                               "[>                   ]  0/100  0 failed\n");
}

TEST_F(WhatTheUserSees, Colours_are_for_terminals_unless_the_user_says_otherwise) {
    const auto isColoured = [&](bool onTerminal, Colour colour, bool noColour) {
        terminal_.error.clear();
        terminal_.terminal = onTerminal;
        auto shown = console({.quiet = true, .colour = colour, .noColour = noColour});
        shown.finished(failed("a.met"));
        return terminal_.error.contains("\x1B[31mFAILED\x1B[0m a.met");
    };
    EXPECT_TRUE(isColoured(true, Colour::Auto, false));
    EXPECT_FALSE(isColoured(true, Colour::Auto, true));
    EXPECT_TRUE(isColoured(true, Colour::Always, true));
    EXPECT_FALSE(isColoured(true, Colour::Never, false));
    EXPECT_FALSE(isColoured(false, Colour::Auto, false));
    EXPECT_TRUE(isColoured(false, Colour::Always, false));
}

TEST_F(WhatTheUserSees, Quiet_is_nothing_but_failures) {
    terminal_.terminal = true;
    auto shown = console({.quiet = true, .colour = Colour::Never});
    plan(shown, 2);
    shown.finished(failed("a.met"));
    shown.ended(RunSummary());
    EXPECT_EQ(terminal_.error, "FAILED a.met: MP ended with status 2: no such\n");
    EXPECT_THAT(terminal_.output, IsEmpty());
}

TEST_F(WhatTheUserSees, Verbose_is_each_command_and_what_it_said) {
    auto shown = console({.verbose = true});
    plan(shown, 1);
    RecordOutcome outcome;
    outcome.result = RecordOutcome::Result::Made;
    outcome.calls.push_back({.tool = Tool::MP, .call = call, .end = exited(0, "one\r\n\x1B[2J\n")});
    shown.finished(outcome);
    EXPECT_EQ(terminal_.error, visibleText(shellLine(call)) + "\n  one\n  <U+001B>[2J\n");
}

} // namespace
} // namespace tarnwick
