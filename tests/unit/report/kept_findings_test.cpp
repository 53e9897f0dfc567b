#include "report/kept_findings.hpp"
#include "runner/message_log.hpp"
#include "support/hosted_world.hpp"

#include <gmock/gmock.h>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class KeptFindingsOfRuns : public testing::Test {
  protected:
    static constexpr const char* path = R"(C:\state\messages.log)";
    KeptFindingsOfRuns() {
        world_.makeFolder(R"(C:\state)");
        log_ = std::make_unique<MessageLog>(world_.files(), path);
    }

    // Each message on a line of its own, from 1 on.
    void said(std::uint32_t run, const std::string& record,
              const std::vector<std::string>& messages) {
        MessagesLine line{.run = run, .record = record, .known = true, .messages = {}};
        for (const std::string& text : messages) {
            line.messages.push_back(
                {.line = static_cast<std::uint32_t>(line.messages.size() + 1), .text = text});
        }
        log_->write(line);
    }
    void unknown(std::uint32_t run, const std::string& record) {
        log_->write(MessagesLine{.run = run, .record = record, .known = false, .messages = {}});
    }
    KeptFindings read(std::uint32_t lastRun,
                      const std::vector<std::string>& records = {"a", "b", "c"},
                      const MessagePatterns& patterns = {}) {
        const ToUtf8 utf8 = [](std::string_view text) { return std::string(text); };
        return readFindings(world_.files(), {.logs = {{.path = path, .lastRun = lastRun}},
                                             .records = records,
                                             .logOf = std::vector<std::uint32_t>(records.size()),
                                             .patterns = patterns,
                                             .utf8 = utf8,
                                             .wantsTexts = [](RecordPlace) { return true; }});
    }
    // "2#0 text": line, shape and text of each.
    static std::vector<std::string> saidOf(const KeptMessages& messages) {
        std::vector<std::string> said;
        said.reserve(messages.size());
        for (std::size_t place = 0; place < messages.size(); ++place) {
            const auto [shape, line, text] = messages[place];
            said.push_back(std::to_string(line) + "#" + std::to_string(shape) + " " +
                           std::string(text));
        }
        return said;
    }
    static std::vector<std::string> textsOf(const KeptFindings& found) {
        std::vector<std::string> texts;
        texts.reserve(found.shapes.size());
        for (const Shape& shape : found.shapes) {
            texts.push_back(shape.text);
        }
        return texts;
    }

    HostedWorld world_;
    std::unique_ptr<MessageLog> log_;
};

TEST_F(KeptFindingsOfRuns, Are_counted_by_shape_and_record) {
    said(1, "b", {"no 1", "no 2", "gap"});
    said(1, "a", {"fine", "no 3"});
    said(1, "c", {});
    const KeptFindings found = read(1);
    EXPECT_THAT(found.shapes,
                ElementsAre(Shape{.text = "no #",
                                  .records = 2,
                                  .messages = 3,
                                  .recordsBefore = 0,
                                  .examples = {{.record = 0, .line = 2, .text = "no 3"},
                                               {.record = 1, .line = 1, .text = "no 1"}},
                                  .common = false},
                            Shape{.text = "fine",
                                  .records = 1,
                                  .messages = 1,
                                  .recordsBefore = 0,
                                  .examples = {{.record = 0, .line = 1, .text = "fine"}},
                                  .common = false},
                            Shape{.text = "gap",
                                  .records = 1,
                                  .messages = 1,
                                  .recordsBefore = 0,
                                  .examples = {{.record = 1, .line = 3, .text = "gap"}},
                                  .common = false}));
    EXPECT_THAT(found.findings,
                ElementsAre(ElementsAre(Finding{.shape = 1, .messages = 1, .line = 1},
                                        Finding{.shape = 0, .messages = 1, .line = 2}),
                            ElementsAre(Finding{.shape = 0, .messages = 2, .line = 1},
                                        Finding{.shape = 2, .messages = 1, .line = 3}),
                            IsEmpty()));
    EXPECT_FALSE(found.hasRunBefore);
    EXPECT_THAT(found.changes, IsEmpty());
}

TEST_F(KeptFindingsOfRuns, Each_message_is_there_with_its_own_text_in_the_order_of_the_reports) {
    said(1, "b", {"gap", "no 1", "no 2"}); // places in another order than that of the shapes
    said(1, "a", {"noise", "no 3"});
    said(2, "a", {"noise", "", "no 4"});
    const KeptFindings found = read(2, {"a", "b", "c"}, {.ignore = {"noise"}, .failOn = {}});
    EXPECT_THAT(textsOf(found), ElementsAre("no #", "gap", ""));
    EXPECT_THAT(saidOf(found.messages[0]), ElementsAre("2#2 ", "3#0 no 4"));
    EXPECT_THAT(saidOf(found.messages[1]), ElementsAre("1#1 gap", "2#0 no 1", "3#0 no 2"));
    EXPECT_THAT(saidOf(found.messages[2]), IsEmpty());
}

TEST_F(KeptFindingsOfRuns, How_many_messages_were_left_out_is_known) {
    log_->write(MessagesLine{.run = 1,
                             .record = "b",
                             .messages = {{.line = 1, .text = "x"}},
                             .missing = MessagesLine::Missing{.leftOut = 1234}});
    const KeptFindings found = read(1);
    EXPECT_THAT(found.leftOut, ElementsAre(0, 1234, 0));
    RunTotals totals;
    countFindings(found, totals);
    EXPECT_EQ(totals.recordsWithFindings, 1U);
    EXPECT_EQ(totals.messages, 1235U);
}

TEST_F(KeptFindingsOfRuns, Are_judged_by_what_a_run_with_the_same_patterns_saw) {
    const MessagePatterns patterns{.ignore = {}, .failOn = {"bad*"}};
    const MessagesLine seen{.run = 1,
                            .record = "b",
                            .messages = {{.line = 1, .text = "bad..."}},
                            .missing =
                                MessagesLine::Missing{.leftOut = 0, .judgedBy = patterns.mark()}};
    MessagesLine unseen = seen;
    unseen.record = "a";
    unseen.messages[0].text = "x...";
    unseen.missing->judgedBy = 0;
    log_->write(seen);
    log_->write(unseen);
    const KeptFindings found = read(1, {"a", "b", "c"}, patterns);
    EXPECT_THAT(found.judgements,
                ElementsAre(Judgement::PartlyKnown, Judgement::Clean, Judgement::Unknown));
    EXPECT_THAT(found.failing, ElementsAre("", "", ""));
}

TEST_F(KeptFindingsOfRuns, What_is_new_and_gone_is_told_since_the_run_before) {
    said(1, "a", {"old", "stays"});
    said(1, "b", {"old"});
    said(1, "c", {"old"});
    said(2, "a", {"stays", "new 1"});
    said(2, "c", {"old"});
    const KeptFindings found = read(2);
    EXPECT_TRUE(found.hasRunBefore);
    EXPECT_THAT(textsOf(found), ElementsAre("old", "stays", "new #"));
    EXPECT_THAT(found.changes,
                ElementsAre(RecordChange{.record = 0, .appeared = {2}, .gone = {0}}));
    EXPECT_EQ(found.shapes[0].records, 2U);
    EXPECT_EQ(found.shapes[0].recordsBefore, 3U);
    EXPECT_EQ(found.shapes[1].recordsBefore, 1U);
    EXPECT_EQ(found.shapes[2].recordsBefore, 0U);
}

TEST_F(KeptFindingsOfRuns, A_shape_that_is_gone_stands_last) {
    said(1, "a", {"gone", "zebra"});
    said(2, "a", {"zebra"});
    const KeptFindings found = read(2);
    EXPECT_THAT(textsOf(found), ElementsAre("zebra", "gone"));
    EXPECT_EQ(found.shapes[1].records, 0U);
    EXPECT_THAT(found.shapes[1].examples, IsEmpty());
    EXPECT_THAT(found.changes, ElementsAre(RecordChange{.record = 0, .appeared = {}, .gone = {1}}));
}

TEST_F(KeptFindingsOfRuns, Only_the_last_run_makes_a_difference) {
    said(1, "a", {"x"});
    said(2, "a", {"y"});
    said(3, "b", {"z"});
    EXPECT_THAT(read(3).changes,
                ElementsAre(RecordChange{.record = 1, .appeared = {1}, .gone = {}}));
    EXPECT_THAT(textsOf(read(3)), ElementsAre("y", "z"));
}

TEST_F(KeptFindingsOfRuns, What_is_not_known_is_neither_new_nor_gone) {
    said(1, "a", {"x"});
    unknown(1, "b");
    unknown(2, "a"); // it failed, and wrote no report
    said(2, "b", {"y"});
    const KeptFindings found = read(2);
    EXPECT_THAT(found.changes, IsEmpty());
    EXPECT_THAT(textsOf(found), ElementsAre("y"));
    EXPECT_EQ(found.shapes[0].recordsBefore, 1U);
}

TEST_F(KeptFindingsOfRuns, A_record_that_is_no_longer_there_is_left_out) {
    said(1, "a", {"x"});
    said(1, "lost", {"y"});
    EXPECT_THAT(textsOf(read(1)), ElementsAre("x"));
}

TEST_F(KeptFindingsOfRuns, What_is_ignored_is_left_out_and_fails_nothing) {
    said(1, "a", {"noise 1", "bad", "worse"});
    said(1, "b", {"noise 2"});
    const KeptFindings found =
        read(1, {"a", "b"}, {.ignore = {"NOISE*"}, .failOn = {"noise*", "w*", "bad"}});
    EXPECT_THAT(textsOf(found), ElementsAre("bad", "worse"));
    EXPECT_THAT(found.failing, ElementsAre("bad", ""));
}

TEST_F(KeptFindingsOfRuns, Common_shapes_are_marked_and_do_not_count_as_findings) {
    std::vector<std::string> records;
    for (int record = 0; record < 6; ++record) {
        records.push_back(std::to_string(record));
        said(1, records.back(), {"Errors: " + std::to_string(record)});
    }
    said(1, "0", {"Errors: 1", "missing", "missing"});
    const KeptFindings found = read(1, records);
    EXPECT_THAT(textsOf(found), ElementsAre("Errors: #", "missing"));
    EXPECT_TRUE(found.shapes[0].common);
    EXPECT_FALSE(found.shapes[1].common);
    RunTotals totals;
    countFindings(found, totals);
    EXPECT_EQ(totals.recordsWithFindings, 1U);
    EXPECT_EQ(totals.messages, 2U);
    EXPECT_EQ(found.shapes[0].examples.size(), Shape::mostExamples);
    EXPECT_EQ(found.shapes[0].examples.back().record, 4U);
}

TEST_F(KeptFindingsOfRuns, The_totals_of_the_last_runs_come_along) {
    for (std::uint32_t run = 1; run <= 60; ++run) {
        log_->write(TotalsLine{.run = run, .totals = {.begun = std::to_string(run)}});
    }
    const auto runs = read(60).runs;
    ASSERT_EQ(runs.size(), RunReport::mostRuns);
    EXPECT_EQ(runs.front().begun, "11");
    EXPECT_EQ(runs.back().begun, "60");
}

} // namespace
} // namespace tarnwick
