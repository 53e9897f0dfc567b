#include "platform/run_time_error.hpp"
#include "runner/run_log.hpp"
#include "support/faulty_files.hpp"
#include "support/hosted_world.hpp"

#include <gmock/gmock.h>

#include <limits>
#include <random>

namespace tarnwick {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

const std::string path = R"(C:\state\run.log)";

const RunLine runLine{.run = 7,
                      .begun = "2026-11-22T01:02:03Z",
                      .conditions = {.commands = 0x0123456789ABCDEF,
                                     .mp = Stamp{.size = 12, .time = 1'700'000'000'123'456'789},
                                     .cns = std::nullopt,
                                     .configuration = Stamp{.size = 0, .time = -1},
                                     .aliases = std::nullopt}};
const RecordLine madeLine{.run = 7,
                          .record = "tide stations.met",
                          .why = "",
                          .stamp = {.size = 466, .time = 1'700'000'000'000'000'001},
                          .calls = {{.tool = Tool::CNS, .code = 0, .seconds = 0.25},
                                    {.tool = Tool::MP, .code = -3, .seconds = 12}},
                          .products = {{.size = 1, .time = 2}, {.size = 3, .time = 4}}};
const RecordLine failedLine{.run = 8,
                            .record = "a\tb\\\n\x7F\xE9.met",
                            .why = "MP ended with status 2: no\tsuch",
                            .stamp = {.size = 5, .time = 6},
                            .calls = {},
                            .products = {}};
const BegunLine begunLine{.run = 8, .record = "b.met"};
const SettledLine settledLine{
    .run = 9, .record = "b\t.met", .log = "share-2-of-5.log", .begunIn = 4};

TEST(LogLine, Is_read_as_it_was_written) {
    for (const LogLine& line : {LogLine(runLine), LogLine(madeLine), LogLine(failedLine),
                                LogLine(begunLine), LogLine(settledLine)}) {
        const std::string text = logLineText(line);
        EXPECT_THAT(text, testing::EndsWith("\n"));
        EXPECT_EQ(parseLogLine(text.substr(0, text.size() - 1)), line) << text;
    }
}

TEST(LogLine, Can_be_read_by_a_person) {
    EXPECT_THAT(logLineText(madeLine),
                StartsWith("made\t7\ttide stations.met\t466@1700000000.000000001\t"
                           "cns:0:0.250,mp:-3:12.000\t1@0.000000002\t3@0.000000004\t"));
    EXPECT_THAT(logLineText(failedLine),
                StartsWith("failed\t8\ta\\x09b\\x5c\\x0a\x7F\xE9.met\t5@0.000000006\t-\t"
                           "MP ended with status 2: no\\x09such\t"));
    EXPECT_THAT(logLineText(settledLine),
                StartsWith("settled\t9\tb\\x09.met\tshare-2-of-5.log\t4\t"));
    EXPECT_THAT(logLineText(runLine),
                StartsWith("run\t7\t2026-11-22T01:02:03Z\tcommands=0123456789abcdef\t"
                           "mp=12@1700000000.123456789\tcns=-\tconfiguration=0@-1.999999999\t"
                           "aliases=-\t"));
}

TEST(LogLine, Says_its_record_before_it_is_read_and_whole_or_not) {
    EXPECT_EQ(recordOfLogLine(logLineText(madeLine)), madeLine.record);
    EXPECT_EQ(recordOfLogLine(logLineText(failedLine)), failedLine.record);
    EXPECT_EQ(recordOfLogLine(logLineText(settledLine)), settledLine.record);
    EXPECT_EQ(recordOfLogLine(logLineText(runLine)), std::nullopt);
    EXPECT_EQ(recordOfLogLine("begun\t8\tb.m"), "b.m");
    for (const char* const none : {"", "begun", "begun\t8", "begun\t8\tb\\x0", "\t"}) {
        EXPECT_EQ(recordOfLogLine(none), std::nullopt) << none;
    }
}

TEST(LogLine, Is_nothing_when_one_byte_of_it_is_another) {
    std::string text = logLineText(madeLine);
    text.pop_back();
    for (char& character : text) {
        const char before = character;
        character = static_cast<char>(character ^ 1);
        EXPECT_EQ(parseLogLine(text), std::nullopt) << text;
        character = before;
    }
    for (std::size_t length = 0; length < text.size(); ++length) {
        EXPECT_EQ(parseLogLine(text.substr(0, length)), std::nullopt);
    }
}

class Log : public testing::Test {
  protected:
    Log() { world_.makeFolder(R"(C:\state)"); }

    void write(std::initializer_list<LogLine> lines) {
        RunLog log(world_.files(), path, readRunLog(world_.files(), path));
        for (const LogLine& line : lines) {
            log.write(line);
        }
        log.close();
    }
    [[nodiscard]] RunHistory read() { return readRunLog(world_.files(), path); }

    HostedWorld world_;
};

TEST_F(Log, That_is_not_there_is_an_empty_one) {
    const RunHistory history = read();
    EXPECT_TRUE(history.records.empty());
    EXPECT_EQ(history.lastRun(), 0U);
    EXPECT_FALSE(history.torn);
}

TEST_F(Log, Tells_what_holds_of_each_record) {
    write({runLine, madeLine, begunLine});
    write({LogLine(RunLine{.run = 8, .begun = "later", .conditions = {}}), failedLine});
    const RunHistory history = read();
    EXPECT_EQ(history.lastRun(), 8U);
    EXPECT_EQ(history.runs.at(7), runLine.conditions);
    ASSERT_EQ(history.records.size(), 3U);
    const KnownRecord& made = history.records.at("tide stations.met");
    EXPECT_EQ(made.state, KnownRecord::State::Made);
    EXPECT_EQ(made.stamp, madeLine.stamp);
    EXPECT_EQ(made.products, madeLine.products);
    EXPECT_EQ(history.records.at(failedLine.record).state, KnownRecord::State::Failed);
    EXPECT_EQ(history.records.at("b.met").state, KnownRecord::State::Begun);
}

TEST_F(Log, The_last_word_on_a_record_counts) {
    RecordLine again = madeLine;
    again.run = 9;
    again.stamp.size = 1;
    write({runLine, madeLine, again});
    EXPECT_EQ(read().records.at(madeLine.record).run, 9U);
}

// However much of the last line is there.
TEST_F(Log, Drops_a_torn_end_and_says_so) {
    write({runLine, madeLine, begunLine});
    const std::string whole = world_.read(path);
    const std::size_t lastLine = whole.rfind("begun");
    for (std::size_t length = lastLine + 1; length < whole.size() - 1; ++length) {
        world_.write(path, std::string_view(whole).substr(0, length));
        const RunHistory history = read();
        EXPECT_TRUE(history.torn) << length;
        EXPECT_EQ(history.damaged, 0U);
        EXPECT_EQ(history.records.size(), 1U);
    }
}

// Only the line's end is missing: what is written next does not become a part of it.
TEST_F(Log, Goes_on_behind_a_line_without_its_end) {
    write({runLine, madeLine});
    std::string whole = world_.read(path);
    whole.pop_back();
    world_.write(path, whole);
    write({begunLine});
    const RunHistory history = read();
    EXPECT_EQ(history.records.size(), 2U);
    EXPECT_EQ(history.damaged, 0U);
    EXPECT_FALSE(history.torn);
}

TEST_F(Log, Of_other_records_than_are_wanted_is_passed_over) {
    write({runLine, madeLine, failedLine, begunLine, settledLine});
    const auto history = readRunLog(world_.files(), path, {},
                                    [](std::string_view record) { return record == "b.met"; });
    EXPECT_EQ(history.runs.size(), 1U);
    ASSERT_EQ(history.records.size(), 1U);
    EXPECT_EQ(history.records.begin()->first, "b.met");
    EXPECT_TRUE(history.settled.empty());
    EXPECT_FALSE(history.torn);
    EXPECT_EQ(history.damaged, 0U);
}

TEST_F(Log, Is_made_anew_after_a_torn_end) {
    write({runLine, madeLine});
    world_.write(path, world_.read(path) + "made\t7\thalf");
    write({begunLine});
    EXPECT_THAT(world_.read(path), testing::Not(HasSubstr("half")));
    const RunHistory history = read();
    EXPECT_FALSE(history.torn);
    EXPECT_EQ(history.records.size(), 2U);
}

TEST_F(Log, Counts_what_is_damaged_in_its_middle) {
    write({runLine, madeLine, begunLine});
    std::string whole = world_.read(path);
    whole[whole.find("tide")] = 'T';
    world_.write(path, whole);
    const RunHistory history = read();
    EXPECT_EQ(history.damaged, 1U);
    EXPECT_FALSE(history.torn);
    EXPECT_EQ(history.records.size(), 1U);
}

TEST_F(Log, A_line_that_has_no_end_is_damaged_and_not_held) {
    write({runLine, madeLine});
    RecordLine endless = madeLine;
    endless.why.assign(longestLogLine, 'x'); // whole, but nobody writes one like that
    world_.write(path, world_.read(path) + logLineText(endless) + logLineText(begunLine));
    const RunHistory history = read();
    EXPECT_EQ(history.damaged, 1U);
    EXPECT_EQ(history.lines, 3U);
}

TEST_F(Log, A_run_that_none_could_follow_is_damage) {
    write({runLine, madeLine});
    RunLine last = runLine;
    last.run = std::numeric_limits<std::uint32_t>::max();
    world_.write(path, world_.read(path) + logLineText(last) + logLineText(begunLine));
    EXPECT_EQ(read().damaged, 1U);
    EXPECT_EQ(read().lastRun(), 7U);
}

TEST_F(Log, Of_a_newer_version_is_refused) {
    world_.write(path, "tarnwick-run log 2\nwhatever\n");
    try {
        static_cast<void>(read());
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_TRUE(error.is(ErrorNumber::InvalidFileFormat));
        EXPECT_EQ(error.record().description, "The run log \"C:\\state\\run.log\" was written by a "
                                              "newer version of tarnwick-run");
    }
}

TEST_F(Log, That_is_another_file_is_refused_and_stays) {
    for (const char* const text :
         {"somebody's own text\n", "tarnwick-run log x\n", "tarnwick-run log 1 \n"}) {
        world_.write(path, text);
        EXPECT_THROW(static_cast<void>(read()), RunTimeError) << text;
        EXPECT_EQ(world_.read(path), text);
    }
}

TEST_F(Log, Whose_title_was_cut_short_is_an_empty_one) {
    world_.write(path, "tarnwick-r");
    EXPECT_TRUE(read().records.empty());
    write({runLine, madeLine});
    EXPECT_EQ(read().records.size(), 1U);
}

TEST_F(Log, Is_made_anew_when_most_of_it_is_stale) {
    write({runLine});
    for (int round = 0; round < 3; ++round) {
        RunLog log(world_.files(), path, read());
        for (int record = 0; record < 400; ++record) {
            RecordLine line = madeLine;
            line.record = std::to_string(record) + ".met";
            line.stamp.size = static_cast<std::uint64_t>(round);
            log.write(line);
        }
        log.close();
    }
    EXPECT_EQ(read().lines, 1201U);
    write({begunLine});
    const RunHistory history = read();
    EXPECT_EQ(history.lines, 402U); // the run, each record once, and the new line
    EXPECT_EQ(history.records.at("17.met").stamp.size, 2U);
    EXPECT_EQ(history.records.at("17.met").products, madeLine.products);
    EXPECT_EQ(history.runs.at(7), runLine.conditions);
}

TEST_F(Log, Stays_as_it_is_where_it_cannot_be_made_anew) {
    write({runLine, madeLine});
    world_.write(path, world_.read(path) + "half");
    const std::string before = world_.read(path);
    FaultyFiles faulty(world_.files());
    for (std::size_t bytes = 0; bytes < 200; bytes += 7) {
        faulty.fillDiskAfter(bytes);
        EXPECT_THROW(RunLog(faulty, path, read()), RunTimeError) << bytes;
        EXPECT_EQ(world_.read(path), before);
    }
}

TEST_F(Log, Any_bytes_are_read_without_harm) {
    std::mt19937 random(5);
    const std::string whole = "tarnwick-run log 1\n" + logLineText(runLine) +
                              logLineText(madeLine) + logLineText(failedLine);
    for (int round = 0; round < 2000; ++round) {
        std::string text = whole;
        for (int change = 0; change < 3; ++change) {
            text[19 + random() % (text.size() - 19)] = static_cast<char>(random());
        }
        world_.write(path, text);
        EXPECT_LE(read().records.size(), 2U);
    }
}

} // namespace
} // namespace tarnwick
