#include "platform/run_time_error.hpp"
#include "runner/judged_messages.hpp"
#include "runner/log_fields.hpp"
#include "runner/message_log.hpp"
#include "support/hosted_world.hpp"

#include <gmock/gmock.h>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

MessagesLine said(std::uint32_t run, std::string record, std::vector<ToolMessage> messages) {
    return {
        .run = run, .record = std::move(record), .known = true, .messages = std::move(messages)};
}
TotalsLine ended(std::uint32_t run) {
    return {.run = run,
            .totals = {.begun = "2026-11-22T02:24:48Z",
                       .seconds = 12.5,
                       .made = 1,
                       .upToDate = 2,
                       .failed = 3,
                       .notRun = 4,
                       .recordsWithFindings = 5,
                       .messages = 6}};
}

class MessageLogFile : public testing::Test {
  protected:
    static constexpr const char* path = R"(C:\state\messages.log)";
    MessageLogFile() { world_.makeFolder(R"(C:\state)"); }

    std::vector<MessageLogLine> lines() {
        std::vector<MessageLogLine> result;
        faults_ = readMessageLog(world_.files(), path,
                                 [&](MessageLogLine& line) { result.push_back(line); });
        return result;
    }
    [[nodiscard]] std::string text() const { return world_.read(path); }
    // Why the log is refused; empty where it is not.
    std::string refusal() {
        try {
            static_cast<void>(lines());
            return "";
        } catch (const RunTimeError& error) {
            EXPECT_TRUE(error.is(ErrorNumber::InvalidFileFormat));
            return error.record().description;
        }
    }

    HostedWorld world_;
    LogFaults faults_;
};

TEST_F(MessageLogFile, Holds_what_was_written) {
    const std::vector<MessageLogLine> written{
        said(1, "a\tb.met", {{.line = 3, .text = "x\ty\\z  "}, {.line = 7, .text = "\xE9 1 2"}}),
        said(1, "c.met", {}),
        MessagesLine{.run = 1, .record = "d.met", .known = false, .messages = {}},
        MessagesLine{.run = 1,
                     .record = "e.met",
                     .messages = {{.line = 1, .text = "x..."}},
                     .missing = MessagesLine::Missing{.leftOut = 12, .judgedBy = 0xA1}},
        MessagesLine{.run = 1, .record = "f.met", .missing = MessagesLine::Missing{}},
        ended(1)};
    MessageLog log(world_.files(), path);
    for (const MessageLogLine& line : written) {
        log.write(line);
    }
    log.close();
    EXPECT_EQ(lines(), written);
    EXPECT_EQ(faults_, LogFaults());
    EXPECT_THAT(text(),
                HasSubstr("tarnwick-run messages 1\n\nmessages\t1\ta\\x09b.met\t3 x\\x09y\\x5cz  "
                          "\t7 \xE9 1 2\t"));
    EXPECT_THAT(text(),
                HasSubstr("\npartly\t1\te.met\tleft-out=12\tjudged=00000000000000a1\t1 x...\t"));
    EXPECT_THAT(text(), HasSubstr("\npartly\t1\tf.met\tleft-out=0\tjudged=-\t"));
    EXPECT_THAT(text(), HasSubstr("\nended\t1\t2026-11-22T02:24:48Z\t12.500\tmade=1\tup-to-date=2\t"
                                  "failed=3\tnot-run=4\twith-findings=5\tmessages=6\t"));
}

TEST_F(MessageLogFile, That_is_not_there_holds_nothing) {
    EXPECT_THAT(lines(), IsEmpty());
    EXPECT_EQ(faults_, LogFaults());
}

TEST_F(MessageLogFile, Lies_beside_its_run_log) {
    EXPECT_EQ(messageLogOf(R"(C:\s\run.log)"), R"(C:\s\messages.log)");
    EXPECT_EQ(messageLogOf(R"(C:\s\share-1-of-8.log)"), R"(C:\s\share-1-of-8.messages.log)");
}

TEST_F(MessageLogFile, A_torn_end_and_damaged_lines_are_dropped_and_mended_by_the_next_run) {
    const std::string one = messageLogLineText(said(1, "a.met", {{.line = 1, .text = "x"}}));
    std::string damaged = one;
    damaged[12] = 'b';
    const std::string torn = one.substr(0, one.size() - 3);
    world_.write(path, "tarnwick-run messages 1\n" + damaged + one + torn);
    EXPECT_THAT(lines(), ElementsAre(said(1, "a.met", {{.line = 1, .text = "x"}})));
    EXPECT_EQ(faults_, (LogFaults{.damaged = 1, .torn = true}));
    MessageLog(world_.files(), path).close();
    EXPECT_EQ(text(), "tarnwick-run messages 1\n" + one + "\n");
    EXPECT_FALSE(world_.exists(std::string(path) + ".new"));
}

TEST_F(MessageLogFile, Another_file_and_a_newer_version_are_refused) {
    world_.write(path, "tarnwick-run log 1\n");
    EXPECT_EQ(refusal(), R"(The message log "C:\state\messages.log" is no log of tarnwick-run)");
    world_.write(path, "tarnwick-run messages 2\n");
    EXPECT_EQ(refusal(),
              R"(The message log "C:\state\messages.log" was written by a newer version )"
              "of tarnwick-run");
    EXPECT_THROW(MessageLog(world_.files(), path), RunTimeError);
    EXPECT_EQ(text(), "tarnwick-run messages 2\n");
    world_.write(path, "tarnwick-run mess");
    EXPECT_EQ(refusal(), "");
}

TEST_F(MessageLogFile, Is_made_anew_of_the_last_lines_when_most_of_it_is_stale) {
    MessageLog log(world_.files(), path);
    for (std::uint32_t run = 1; run <= 400; ++run) {
        log.write(said(run, "a.met", {{.line = run, .text = "x"}}));
        log.write(said(run, "b.met", {}));
        log.write(ended(run));
    }
    log.close();
    MessageLog(world_.files(), path).close();
    const auto kept = lines();
    ASSERT_EQ(kept.size(), 2 + keptTotals);
    EXPECT_EQ(kept[0], MessageLogLine(ended(400 - keptTotals + 1)));
    EXPECT_EQ(kept[keptTotals - 1],
              MessageLogLine(said(400, "a.met", {{.line = 400, .text = "x"}})));
    EXPECT_EQ(kept[keptTotals], MessageLogLine(said(400, "b.met", {})));
    EXPECT_EQ(kept.back(), MessageLogLine(ended(400)));
}

TEST_F(MessageLogFile, Takes_the_totals_of_a_run_with_nothing_to_do_without_being_read) {
    const TotalsLine idle{
        .run = 2, .totals = {.begun = "then", .upToDate = 3}, .findingsAsBefore = true};
    addTotals(world_.files(), path, idle);
    EXPECT_THAT(lines(), ElementsAre(idle)); // it was made for it
    EXPECT_THAT(text(), HasSubstr("\nended\t2\tthen\t0.000\tmade=0\tup-to-date=3\tfailed=0\t"
                                  "not-run=0\twith-findings=-\tmessages=-\t"));
    const std::string torn = "tarnwick-run messages 1\nmessages\t1\tcut sho";
    world_.write(path, torn);
    addTotals(world_.files(), path, idle);
    EXPECT_EQ(text(), torn + "\n" + messageLogLineText(idle));
    EXPECT_THAT(lines(), ElementsAre(idle));
    for (const char* const other : {"tarnwick-run messages 2\n", "my letters"}) {
        world_.write(path, other);
        addTotals(world_.files(), path, idle);
        EXPECT_EQ(text(), other);
    }
}

TEST_F(MessageLogFile, Only_findings_that_nobody_counted_are_those_before) {
    std::string half = messageLogLineText(ended(1));
    half = half.substr(0, half.rfind('\t'));
    half.replace(half.find("findings=5"), 10, "findings=-");
    EXPECT_FALSE(parseMessageLogLine(logLineOf(half).substr(0, logLineOf(half).size() - 1)));
}

TEST_F(MessageLogFile, Keeps_the_findings_that_runs_with_nothing_to_do_go_by) {
    MessageLog log(world_.files(), path);
    for (std::uint32_t run = 1; run <= 1200; ++run) {
        TotalsLine line = ended(run);
        line.findingsAsBefore = run > 2;
        log.write(line);
    }
    log.close();
    MessageLog(world_.files(), path).close();
    const auto kept = lines();
    ASSERT_EQ(kept.size(), 1 + keptTotals);
    EXPECT_EQ(kept[0], MessageLogLine(ended(2)));
    EXPECT_EQ(std::get<TotalsLine>(kept[1]).run, 1200 - keptTotals + 1);
}

TEST_F(MessageLogFile, Is_left_as_it_is_while_most_of_it_is_needed) {
    MessageLog log(world_.files(), path);
    for (int record = 0; record < 1500; ++record) {
        log.write(said(1, std::to_string(record), {}));
    }
    log.close();
    const std::string before = text();
    MessageLog(world_.files(), path).close();
    EXPECT_EQ(text(), before + "\n");
}

TEST_F(MessageLogFile, The_last_that_is_known_of_a_record_judges_it) {
    MessageLog log(world_.files(), path);
    log.write(said(1, "mended.met", {{.line = 1, .text = "bad"}}));
    log.write(said(1, "worse.met", {{.line = 1, .text = "fine"}}));
    log.write(said(1, "lost.met", {{.line = 1, .text = "bad"}}));
    log.write(said(2, "mended.met", {{.line = 1, .text = "fine"}}));
    log.write(said(2, "worse.met", {{.line = 1, .text = "fine"}, {.line = 2, .text = "bad"}}));
    log.write(MessagesLine{.run = 2, .record = "lost.met", .known = false, .messages = {}});
    log.write(ended(2));
    log.close();
    const auto judged = judgeKeptMessages(world_.files(), path, {.ignore = {}, .failOn = {"b?d"}});
    EXPECT_EQ(judged, (JudgedMessages{{"mended.met", Judgement::Clean},
                                      {"worse.met", Judgement::Fails},
                                      {"lost.met", Judgement::Unknown}}));
}

TEST(Judgements, What_is_missing_is_not_clean_unless_the_same_patterns_have_seen_it) {
    const MessagePatterns patterns{.ignore = {}, .failOn = {"b?d"}};
    MessagesLine line = said(1, "a.met", {{.line = 1, .text = "fine"}});
    EXPECT_EQ(judgementOf(line, patterns), Judgement::Clean);
    line.missing = MessagesLine::Missing();
    EXPECT_EQ(judgementOf(line, patterns), Judgement::PartlyKnown);
    line.missing->judgedBy = patterns.mark();
    EXPECT_EQ(judgementOf(line, patterns), Judgement::Clean);
    EXPECT_EQ(judgementOf(line, {.ignore = {}, .failOn = {"b?d", "worse"}}),
              Judgement::PartlyKnown);
}

TEST(Judgements, What_is_kept_fails_whatever_is_missing) {
    const MessagePatterns patterns{.ignore = {}, .failOn = {"b?d"}};
    MessagesLine line = said(1, "a.met", {{.line = 1, .text = "bad"}});
    line.missing = MessagesLine::Missing();
    EXPECT_EQ(judgementOf(line, patterns), Judgement::Fails);
}

} // namespace
} // namespace tarnwick
