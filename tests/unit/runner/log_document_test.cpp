// docs/run-log.md, held to what the program writes.

#include "runner/message_log.hpp"
#include "runner/run_log.hpp"

#include <gmock/gmock.h>

#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {
namespace {

// The lines of the example below that heading, without their indentation, up to a line.
std::vector<std::string> exampleLines(std::string_view heading, std::string_view end) {
    constexpr std::string_view indentation = "    ";
    std::vector<std::string> lines;
    std::ifstream document(RUN_LOG_DOCUMENT);
    std::string line;
    while (std::getline(document, line) && line != heading) {
    }
    while (std::getline(document, line) && !line.starts_with(end)) {
        if (line.starts_with(indentation)) {
            lines.push_back(line.substr(indentation.size()));
        }
    }
    return lines;
}

TEST(LogDocument, Shows_lines_as_they_are_written_with_their_checksums) {
    const auto lines = exampleLines("## An example", "## Lines");
    ASSERT_GT(lines.size(), 1U);
    EXPECT_EQ(lines.front(), std::string(logTitle) + std::to_string(logVersion));
    RunHistory history;
    for (std::size_t place = 1; place < lines.size(); ++place) {
        const auto line = parseLogLine(lines[place]);
        ASSERT_TRUE(line) << lines[place];
        EXPECT_EQ(logLineText(*line), lines[place] + "\n");
        take(*line, history);
    }
    EXPECT_EQ(history.lastRun(), 2U);
    EXPECT_EQ(history.records.size(), 3U);
    EXPECT_EQ(history.records.at("tide stations.met").state, KnownRecord::State::Made);
    EXPECT_EQ(history.records.at("wells.met").state, KnownRecord::State::Failed);
    EXPECT_EQ(history.records.at("lakes.met").state, KnownRecord::State::Begun);
}

TEST(LogDocument, Shows_lines_of_the_message_log_as_they_are_written) {
    const auto lines = exampleLines("## The message log", "| Kind");
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines.front(), std::string(messageLogTitle) + std::to_string(messageLogVersion));
    for (std::size_t place = 1; place < lines.size(); ++place) {
        const auto line = parseMessageLogLine(lines[place]);
        ASSERT_TRUE(line) << lines[place];
        EXPECT_EQ(messageLogLineText(*line), lines[place] + "\n");
    }
}

} // namespace
} // namespace tarnwick
