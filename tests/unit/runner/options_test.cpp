#include "options.hpp"

#include <gmock/gmock.h>

#include <sstream>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

RunnerOptions optionsOf(std::vector<std::string> arguments) {
    auto parsed = parseOptions(std::move(arguments), 6);
    if (const auto* const printed = std::get_if<PrintedText>(&parsed)) {
        ADD_FAILURE() << printed->text;
        return {};
    }
    return std::get<RunnerOptions>(std::move(parsed));
}

PrintedText printedBy(std::vector<std::string> arguments) {
    auto parsed = parseOptions(std::move(arguments), 6);
    return std::holds_alternative<PrintedText>(parsed) ? std::get<PrintedText>(parsed)
                                                       : PrintedText{.text = "nothing printed"};
}

TEST(Options, A_definition_is_enough) {
    const RunnerOptions options = optionsOf({"night.ini"});
    EXPECT_EQ(options.command, RunnerOptions::Command::Run);
    EXPECT_EQ(options.definition, "night.ini");
    EXPECT_THAT(options.job.records, IsEmpty());
    RunSettings settings;
    settings.jobs = 6;
    EXPECT_EQ(options.settings, settings);
    EXPECT_EQ(options.console, ConsoleOptions());
    EXPECT_FALSE(options.dryRun);
}

TEST(Options, Are_understood_in_any_order) {
    const RunnerOptions options = optionsOf({"run",
                                             "-j4",
                                             "--timeout",
                                             "5m",
                                             "night.ini",
                                             "a.met",
                                             "--accept=0,1,-2",
                                             "b*.met",
                                             "-F",
                                             "in put",
                                             "-e",
                                             "*.met;*.txt",
                                             "--retries",
                                             "2",
                                             "--stop-after",
                                             "7",
                                             "--keep-partial",
                                             "--all",
                                             "--in-place",
                                             "--dry-run",
                                             "-v",
                                             "--state",
                                             "st",
                                             "--mp",
                                             "m",
                                             "--cns",
                                             "c",
                                             "--drive",
                                             "T:=/srv",
                                             "--drive",
                                             "U:=/u",
                                             "--code-page",
                                             "932",
                                             "--color",
                                             "never"});
    EXPECT_EQ(options.definition, "night.ini");
    EXPECT_THAT(options.job.records, ElementsAre("a.met", "b*.met"));
    EXPECT_EQ(options.job.inputFolder, "in put");
    EXPECT_EQ(options.job.inputExtensions, "*.met;*.txt");
    EXPECT_EQ(options.job.mpExecutable, "m");
    EXPECT_EQ(options.job.cnsExecutable, "c");
    EXPECT_TRUE(options.job.inPlace);
    EXPECT_EQ(options.settings, (RunSettings{.jobs = 4,
                                             .accept = {0, 1, -2},
                                             .timeLimit = 300.0,
                                             .retries = 2,
                                             .stopAfter = 7,
                                             .keepPartial = true,
                                             .all = true}));
    EXPECT_EQ(options.state, "st");
    EXPECT_TRUE(options.dryRun);
    EXPECT_TRUE(options.style.verbose);
    EXPECT_EQ(options.style.colour, Colour::Never);
    EXPECT_THAT(options.console.drives, ElementsAre("T:=/srv", "U:=/u"));
    EXPECT_EQ(options.console.codePage, 932U);
}

TEST(Options, The_calls_are_printed_in_the_format_that_is_asked_for) {
    EXPECT_EQ(optionsOf({"commands", "a.ini"}).format, CallFormat::Sh);
    const RunnerOptions options = optionsOf({"commands", "a.ini", "--format", "json"});
    EXPECT_EQ(options.command, RunnerOptions::Command::PrintCalls);
    EXPECT_EQ(options.format, CallFormat::Json);
    EXPECT_EQ(optionsOf({"commands", "a.ini", "--format=null"}).format, CallFormat::Null);
}

TEST(Options, Reports_and_patterns_may_be_given_several_times) {
    const RunnerOptions options =
        optionsOf({"report", "a.ini", "--report", "out.html", "--report", "OUT.Json", "--ignore",
                   "a*", "--ignore", "b", "--fail-on", "c*", "x.met"});
    EXPECT_EQ(options.command, RunnerOptions::Command::Report);
    EXPECT_EQ(options.definition, "a.ini");
    EXPECT_THAT(options.reports, ElementsAre("out.html", "OUT.Json"));
    EXPECT_THAT(options.settings.messages.ignore, ElementsAre("a*", "b"));
    EXPECT_THAT(options.settings.messages.failOn, ElementsAre("c*"));
    EXPECT_THAT(options.job.records, ElementsAre("x.met"));
    EXPECT_THAT(optionsOf({"a.ini", "--report=out.xml"}).reports, ElementsAre("out.xml"));
}

TEST(Options, A_time_is_a_number_with_or_without_its_unit) {
    const auto seconds = [](const std::string& text) {
        return optionsOf({"a.ini", "--timeout", text}).settings.timeLimit;
    };
    EXPECT_EQ(seconds("90"), 90);
    EXPECT_EQ(seconds("1.5s"), 1.5);
    EXPECT_EQ(seconds("2h"), 7200);
}

TEST(Options, A_share_is_given_or_left_to_the_engine) {
    EXPECT_EQ(optionsOf({"a.ini"}).job.share, std::nullopt);
    EXPECT_EQ(optionsOf({"a.ini", "--shard", "3/8"}).job.share, (Share{.number = 3, .count = 8}));
    EXPECT_EQ(optionsOf({"commands", "a.ini", "--shard=3/8"}).job.share,
              (Share{.number = 3, .count = 8}));
    EXPECT_FALSE(optionsOf({"a.ini", "--shard", "3/8"}).shareOfEngine);
    EXPECT_TRUE(optionsOf({"a.ini", "--shard", "auto"}).shareOfEngine);
}

TEST(Options, A_share_has_notice_and_else_only_who_asks_for_it) {
    const auto notice = [](std::vector<std::string> arguments) {
        return optionsOf(std::move(arguments)).settings.notice;
    };
    EXPECT_EQ(notice({"a.ini"}), std::nullopt);
    EXPECT_EQ(notice({"a.ini", "--notice", "2m"}), 120);
    EXPECT_EQ(notice({"a.ini", "--shard", "1/2"}), 30);
    EXPECT_EQ(notice({"a.ini", "--shard", "auto"}), 30);
    EXPECT_EQ(notice({"a.ini", "--shard", "1/2", "--notice", "10"}), 10);
}

TEST(Options, What_is_wrong_is_told_and_nothing_is_run) {
    for (const auto& [arguments, sentence] :
         std::vector<std::pair<std::vector<std::string>, std::string>>{
             {{}, "DEFINITION is required"},
             {{"a.ini", "--nonsense"}, "--nonsense"},
             {{"a.ini", "-n"}, "-n"}, // of Tarnwick.exe, and nothing here
             {{"a.ini", "-j", "0"}, "-j"},
             {{"a.ini", "-j", "many"}, "-j"},
             {{"a.ini", "--retries", "-1"}, "--retries"},
             {{"a.ini", "--stop-after", "0"}, "--stop-after"},
             {{"a.ini", "--timeout", "soon"}, "soon"},
             {{"a.ini", "--timeout", "-1"}, "-1"},
             {{"a.ini", "--accept", "0,x"}, "0,x"},
             {{"a.ini", "--shard", "9/8"}, "a share is K/N, with K from 1 to N, or auto: 9/8"},
             {{"a.ini", "--shard"}, "--shard"},
             {{"a.ini", "--notice", "soon"}, "soon"},
             {{"commands", "a.ini", "--notice", "5s"}, "--notice"},
             {{"a.ini", "--color", "red"}, "--color"},
             {{"a.ini", "--format", "json"}, "--format"}, // of the other command
             {{"commands", "a.ini", "--format", "xml"}, "--format"},
             {{"a.ini", "--report", "out.htm"},
              "a report ends in .html, .json, .csv or .xml: out.htm"},
             {{"a.ini", "--report", "out.html", "--dry-run"}, "--dry-run makes no report"},
             {{"report", "a.ini"}, "report needs --report FILE"},
             {{"report", "a.ini", "--report", "o.csv", "--all"}, "--all"}, // of a run
             {{"commands", "a.ini", "--fail-on", "x"}, "--fail-on"}}) {
        const PrintedText printed = printedBy(arguments);
        EXPECT_TRUE(printed.wrongUse) << printed.text;
        EXPECT_THAT(printed.text, HasSubstr(sentence));
    }
}

TEST(Options, Help_and_version_are_no_mistakes) {
    for (const char* const option : {"--help", "-h"}) {
        const PrintedText help = printedBy({option});
        EXPECT_FALSE(help.wrongUse);
        for (const char* const word :
             {"--jobs",  "--accept",    "--timeout", "--retries",  "--stop-after", "--keep-partial",
              "--all",   "--dry-run",   "--state",   "--in-place", "--drive",      "--code-page",
              "--color", "--mp",        "--cns",     "--report",   "--ignore",     "--fail-on",
              "report",  "Exit status", "Examples",  "commands"}) {
            EXPECT_THAT(help.text, HasSubstr(word));
        }
    }
    EXPECT_THAT(printedBy({"--version"}).text, testing::StartsWith("tarnwick-run 2."));
}

TEST(Options, No_line_of_the_help_is_longer_than_a_terminal_is_wide) {
    for (const char* const command : {"run", "commands", "report"}) {
        std::istringstream help(printedBy({command, "--help"}).text);
        for (std::string line; std::getline(help, line);) {
            EXPECT_LT(line.size(), 80U) << line;
        }
    }
}

TEST(Options, A_definition_named_as_a_command_has_a_folder_before_it) {
    EXPECT_EQ(optionsOf({"./run"}).definition, "./run");
    EXPECT_EQ(optionsOf({"run", "run"}).definition, "run");
}

} // namespace
} // namespace tarnwick
