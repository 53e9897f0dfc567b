// The program from outside, with real tools: the natively built stand-ins, and scripts.

#include "runner_program/started_program.hpp"
#include "support/eventually.hpp"
#include "support/hosted_world.hpp"

#include <gmock/gmock.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <thread>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// A definition that makes errors and HTML of the records of T:\in.
class RunnerProgram : public testing::Test {
  protected:
    RunnerProgram() {
        forgetTheCallersWorld();
        for (const char* const folder : {"in", "out", "tools"}) {
            fs::create_directory(root_ / folder);
        }
        write("night.ini", "MP EXECUTABLE=T:\\tools\\mp\r\n"
                           "Process MP=1\r\nProcess CNS=0\r\nInput Folder=T:\\in\r\n"
                           "Input File Extension=*.met\r\n"
                           "Convert HyperLink To Relative Path=False\r\nLanguage=English\r\n"
                           "Error Extension=.err\r\nGRID_Error=T:\\out\r\n"
                           "Html Extension=.html\r\nGRID_Html=T:\\out\r\n");
        script("mp", "cat \"$7\" > \"$4\"; echo page > \"$6\"");
    }

    void write(const std::string& name, std::string_view text) const {
        std::ofstream(root_ / name, std::ios::binary) << text;
    }
    // In place of MP: -l en -e ERRORS -h PAGE RECORD are its arguments.
    void script(const std::string& name, const std::string& text) const {
        write("tools/" + name, "#!/bin/sh\n" + text + "\n");
        fs::permissions(root_ / "tools" / name, fs::perms::owner_all);
    }
    void writeRecords(int count) const {
        for (int record = 0; record < count; ++record) {
            write("in/r" + std::to_string(record) + ".met", "record " + std::to_string(record));
        }
    }

    // Whoever runs the tests may have drives of their own, and may do so in a batch job.
    void forgetTheCallersWorld() const {
        setenv("XDG_CONFIG_HOME", (root_ / "config").c_str(), 1);
        for (const char* const variable :
             {"TARNWICK_DRIVES", "TARNWICK_SHARD", "SLURM_ARRAY_JOB_ID", "SLURM_ARRAY_TASK_ID",
              "SLURM_ARRAY_TASK_MIN", "SLURM_ARRAY_TASK_COUNT", "SLURM_ARRAY_TASK_MAX",
              "SLURM_ARRAY_TASK_STEP", "SLURM_JOB_ID"}) {
            unsetenv(variable);
        }
    }

    [[nodiscard]] std::vector<std::string> command(std::vector<std::string> more) const {
        std::vector<std::string> words{TARNWICK_RUN, "--drive", "T:=" + root_.string()};
        if (!more.empty() &&
            (more.front() == "run" || more.front() == "commands" || more.front() == "report")) {
            words.insert(words.begin() + 1, more.front());
            more.erase(more.begin());
        }
        words.insert(words.end(), more.begin(), more.end());
        return words;
    }
    // To the script the name is "$0" and the words are "$@".
    [[nodiscard]] static std::vector<std::string> inShell(const std::string& scriptText,
                                                          const std::string& name,
                                                          std::vector<std::string> words) {
        words.insert(words.begin(), {"sh", "-c", scriptText, name});
        return words;
    }
    [[nodiscard]] std::unique_ptr<StartedProgram> start(std::vector<std::string> more) const {
        return std::make_unique<StartedProgram>(command(std::move(more)), root_ / "said");
    }
    int run(std::vector<std::string> more) { return start(std::move(more))->wait(); }
    [[nodiscard]] std::string definition() const { return root_ / "night.ini"; }
    [[nodiscard]] std::string output() const { return contentOf(root_ / "said.out"); }
    [[nodiscard]] std::string error() const { return contentOf(root_ / "said.err"); }
    [[nodiscard]] std::map<std::string, std::string> products() const {
        std::map<std::string, std::string> result;
        for (const auto& entry : fs::directory_iterator(root_ / "out")) {
            result[entry.path().filename()] = contentOf(entry.path());
        }
        return result;
    }
    // The numbers that scripts have written into that file, one a line.
    [[nodiscard]] std::vector<pid_t> processesIn(const std::string& name) const {
        std::ifstream file(root_ / name);
        return {std::istream_iterator<pid_t>(file), {}};
    }

    TemporaryFolder folder_;
    fs::path root_ = folder_.hostPath();
};

TEST_F(RunnerProgram, Makes_what_is_new_and_then_nothing) {
    writeRecords(5);
    EXPECT_EQ(run({definition(), "-j2"}), 0) << error();
    EXPECT_THAT(output(), HasSubstr("5 made, 0 failed, 0 up to date"));
    EXPECT_THAT(output(), HasSubstr("The log is " + (root_ / "night.state/run.log").string()));
    EXPECT_EQ(products().size(), 10U);
    EXPECT_EQ(contentOf(root_ / "out/r3.err"), "record 3");
    EXPECT_EQ(run({"run", definition()}), 0) << error();
    EXPECT_THAT(output(), HasSubstr("0 made, 0 failed, 5 up to date"));
}

TEST_F(RunnerProgram, Bad_input_of_each_kind_gets_a_sentence_and_status_2) {
    writeRecords(1);
    const auto expectRefused = [&](std::vector<std::string> arguments, const std::string& why) {
        EXPECT_EQ(run(std::move(arguments)), 2) << why;
        EXPECT_THAT(error(), HasSubstr("tarnwick-run: "));
        EXPECT_THAT(error(), HasSubstr(why));
        EXPECT_THAT(output(), IsEmpty());
        EXPECT_THAT(products(), IsEmpty());
    };
    expectRefused({root_ / "gone.ini"}, "gone.ini\" does not exist.");
    expectRefused({root_ / "in"}, "in\" is a folder.");
    expectRefused({root_ / "in/r0.met"}, "r0.met\" cannot be read: Invalid file format.");
    expectRefused({definition(), "--mp", root_ / "tools/gone"},
                  "\"" + (root_ / "tools/gone").string() + "\" does not exist.");
    write("tools/text", "no program");
    expectRefused({definition(), "--mp", root_ / "tools/text"},
                  "is no program that can be started.");
    expectRefused({definition(), "-F", root_ / "gone"},
                  "The input folder \"" + (root_ / "gone").string() + "\" does not exist.");
    expectRefused({definition(), "r7.met"}, "No record is named \"r7.met\".");
    expectRefused({definition(), "--drive", "nonsense"}, "nonsense");
    expectRefused({definition(), "--state", "/proc/state"}, "cannot be used");
    fs::remove(root_ / "in/r0.met");
    expectRefused({definition()}, "No files found in folder");
}

TEST_F(RunnerProgram, Without_its_drive_a_definition_is_refused_with_a_hint) {
    writeRecords(1);
    StartedProgram program({TARNWICK_RUN, definition()}, root_ / "said");
    EXPECT_EQ(program.wait(), 2);
    EXPECT_THAT(error(), HasSubstr("--drive"));
}

TEST_F(RunnerProgram, An_output_without_its_folder_is_told_and_the_others_are_made) {
    writeRecords(1);
    script("mp", "echo errors > \"$4\"");
    std::string text = contentOf(definition());
    const std::string place = "GRID_Html=T:\\out";
    text.replace(text.find(place), place.size(), "GRID_Html=T:\\gone");
    write("night.ini", text);
    EXPECT_EQ(run({definition(), "-q"}), 0);
    EXPECT_EQ(error(), "tarnwick-run: The folder \"T:\\gone\" does not exist: the output \"Html\" "
                       "is not made.\n");
}

TEST_F(RunnerProgram, Results_that_cannot_be_written_are_no_success) {
    writeRecords(1);
    StartedProgram program(inShell(R"("$@" >/dev/full)", "sh", command({"commands", definition()})),
                           root_ / "said");
    EXPECT_EQ(program.wait(), 1);
    EXPECT_THAT(error(), HasSubstr("could not be written"));
}

TEST_F(RunnerProgram, An_output_folder_that_cannot_be_written_is_told_before_anything_is_started) {
    writeRecords(1);
    std::string text = contentOf(definition());
    const std::string place = "GRID_Html=T:\\out";
    text.replace(text.find(place), place.size(), R"(GRID_Html=\\localhost\root\proc)");
    write("night.ini", text);
    EXPECT_EQ(run({definition()}), 2);
    EXPECT_THAT(error(), HasSubstr("Nothing can be made in the folder"));
    EXPECT_THAT(products(), IsEmpty());
}

TEST_F(RunnerProgram, A_tool_that_fails_or_takes_too_long_fails_its_record_alone) {
    writeRecords(3);
    script("mp",
           "case $7 in *r1.met) echo 'no such element' >&2; exit 3;; *r2.met) sleep 600;; esac\n"
           "cat \"$7\" > \"$4\"; echo page > \"$6\"");
    EXPECT_EQ(run({definition(), "r0.met", "r1.met"}), 1);
    EXPECT_THAT(error(), HasSubstr("FAILED r1.met: MP ended with status 3: no such element\n"));
    EXPECT_THAT(output(), HasSubstr("1 made, 1 failed, 0 up to date"));
    EXPECT_TRUE(fs::exists(root_ / "out/r0.html"));
    EXPECT_EQ(run({definition(), "r2.met", "--timeout", "0.5"}), 1);
    EXPECT_THAT(error(), HasSubstr("FAILED r2.met: MP took longer than 0.5 s and was ended\n"));
}

TEST_F(RunnerProgram, Hidden_files_are_no_records) {
    writeRecords(1);
    write("in/._r0.met", "what another system keeps beside a file");
    EXPECT_EQ(run({definition()}), 0) << error();
    EXPECT_THAT(output(), HasSubstr("1 made, 0 failed, 0 up to date"));
}

TEST_F(RunnerProgram, A_record_that_cannot_be_named_fails_only_a_run_of_all) {
    writeRecords(1);
    write("in/\xFF.met", "a name in another code page");
    EXPECT_EQ(run({definition()}), 1);
    EXPECT_THAT(error(), HasSubstr("its name cannot be told here"));
    EXPECT_EQ(run({definition(), "r0.met"}), 0) << error();
}

TEST_F(RunnerProgram, Arguments_arrive_as_they_are) {
    script("mp", "printf '%s\\n' \"$@\" > \"$4\"; pwd > \"$6\"");
    const std::string name = "100% of $HOME & `more`! 'x' (1);.met";
    write("in/" + name, "record");
    EXPECT_EQ(run({definition()}), 0) << error();
    const std::string base = root_ / ("out/" + name.substr(0, name.size() - 4));
    EXPECT_EQ(contentOf(base + ".err"), "-l\nen\n-e\n" + base + ".err\n-h\n" + base + ".html\n" +
                                            (root_ / "in" / name).string() + "\n");
    EXPECT_EQ(contentOf(base + ".html"), (root_ / "in").string() + "\n");
}

TEST_F(RunnerProgram, A_second_runner_is_told_who_is_at_work) {
    writeRecords(1);
    script("mp", "while [ ! -e \"${7%/in/*}/go\" ]; do sleep 0.1; done; : > \"$4\"; : > \"$6\"; "
                 "echo x > \"$4\"");
    const auto first = start({definition()});
    EXPECT_TRUE(eventually([&] {
        return fs::exists(root_ / "night.state/lock") &&
               !contentOf(root_ / "night.state/lock").empty();
    }));
    StartedProgram second(command({definition()}), root_ / "second");
    EXPECT_EQ(second.wait(), 2);
    EXPECT_THAT(contentOf(root_ / "second.err"), HasSubstr("at work on this definition: process "));
    write("go", "");
    EXPECT_EQ(first->wait(), 0) << error();
}

// Scripts that say who they are, start a child, and go on until they are let go or ended.
class InterruptedRunner : public RunnerProgram {
  protected:
    InterruptedRunner() {
        writeRecords(20);
        script("mp", "root=${7%/in/*}\n"
                     "sleep 3600 & echo $! >> $root/children\n"
                     "echo $$ >> $root/tools.txt\n"
                     "while [ ! -e \"$root/go\" ]; do sleep 0.1; done\n"
                     "cat \"$7\" > \"$4\"; echo page > \"$6\"");
    }
    void waitForTools(std::size_t count) {
        EXPECT_TRUE(eventually([&] { return processesIn("tools.txt").size() >= count; }));
    }
    void expectNoToolIsLeft() {
        for (const char* const name : {"tools.txt", "children"}) {
            for (const pid_t process : processesIn(name)) {
                EXPECT_TRUE(eventually([&] { return !isAlive(process); }));
            }
        }
    }
};

TEST_F(InterruptedRunner, Ctrl_C_lets_the_running_tools_end) {
    const auto program = start({definition(), "-j2"});
    waitForTools(2);
    program->send(SIGINT);
    EXPECT_TRUE(eventually([&] { return error().contains("the running tools may end"); }));
    write("go", "");
    EXPECT_EQ(program->wait(), 130);
    EXPECT_EQ(processesIn("tools.txt").size(), 2U);
    EXPECT_THAT(output(), HasSubstr("2 made, 0 failed, 0 up to date, 18 not run"));
    expectNoToolIsLeft(); // their children, which they had left behind
    EXPECT_EQ(run({definition()}), 0) << error();
    EXPECT_THAT(output(), HasSubstr("18 made, 0 failed, 2 up to date"));
}

TEST_F(InterruptedRunner, Ctrl_C_once_more_and_SIGTERM_end_every_tool_with_its_tree) {
    for (const auto& [signals, status] :
         std::vector<std::pair<std::vector<int>, int>>{{{SIGINT, SIGINT}, 130}, {{SIGTERM}, 143}}) {
        const auto before = processesIn("tools.txt").size();
        const auto program = start({definition(), "-j2"});
        waitForTools(before + 2);
        for (const int signal : signals) {
            program->send(signal);
            // The next of two that follow at once would be lost: the system keeps only one.
            EXPECT_TRUE(eventually([&] {
                return error().contains("may end") || error().contains("Ending the running") ||
                       program->hasEnded();
            }));
        }
        EXPECT_EQ(program->wait(), status);
        expectNoToolIsLeft();
        EXPECT_THAT(output(), HasSubstr("0 made, 0 failed, 0 up to date, 20 not run"));
        EXPECT_THAT(products(), IsEmpty());
    }
}

TEST_F(InterruptedRunner, SIGTERM_with_notice_lets_tools_end_and_ends_those_that_do_not) {
    auto program = start({definition(), "-j2", "--notice", "2h"});
    waitForTools(2);
    program->send(SIGTERM);
    EXPECT_TRUE(eventually([&] { return error().contains("may end while there is time"); }));
    write("go", "");
    EXPECT_EQ(program->wait(), 143);
    EXPECT_THAT(output(), HasSubstr("2 made, 0 failed, 0 up to date, 18 not run"));
    fs::remove(root_ / "go");
    program = start({definition(), "-j2", "--notice", "0.5"});
    waitForTools(4);
    program->send(SIGTERM);
    EXPECT_EQ(program->wait(), 143);
    EXPECT_THAT(output(), HasSubstr("0 made, 0 failed, 2 up to date, 18 not run"));
    expectNoToolIsLeft();
    write("go", "");
    EXPECT_EQ(run({definition()}), 0) << error();
    EXPECT_THAT(output(), HasSubstr("18 made"));
}

TEST_F(InterruptedRunner, A_runner_that_is_killed_leaves_no_tool) {
    const auto program = start({definition(), "-j4"});
    waitForTools(4);
    program->send(SIGKILL);
    EXPECT_EQ(program->wait(), -SIGKILL);
    expectNoToolIsLeft();
    write("go", "");
    EXPECT_EQ(run({definition()}), 0) << error(); // and its lock is free
    EXPECT_THAT(output(), HasSubstr("20 made"));
}

int torture(int few) {
    const char* const asked = std::getenv("TARNWICK_TORTURE");
    return asked == nullptr ? few : static_cast<int>(std::strtol(asked, nullptr, 10));
}

// Tools that take a moment and write in two pieces; killed anywhere, one more run makes it whole.
TEST_F(RunnerProgram, Killed_at_any_moment_it_loses_nothing_but_what_was_in_work) {
    writeRecords(12);
    script("mp", "printf half > \"$4\"; printf half > \"$6\"; sleep 0.01\n"
                 "cat \"$7\" > \"$4\"; echo page > \"$6\"");
    ASSERT_EQ(run({definition(), "-j3", "--state", root_ / "undisturbed"}), 0) << error();
    const auto expected = products();
    fs::remove_all(root_ / "out");
    fs::create_directory(root_ / "out");
    std::mt19937 random(std::random_device{}());
    for (int kill = 0; kill < torture(12); ++kill) {
        if (kill % 4 == 3) { // something to do for the next ones
            write("in/r" + std::to_string(random() % 12) + ".met", "record, changed");
            fs::remove(root_ / "out/r5.html");
        }
        const auto program = start({definition(), "-j3", kill % 5 == 4 ? "--all" : "-q"});
        std::this_thread::sleep_for(std::chrono::milliseconds(random() % 60));
        program->send(SIGKILL);
        program->wait();
    }
    writeRecords(12);
    EXPECT_EQ(run({definition(), "-j3"}), 0) << error();
    EXPECT_EQ(products(), expected);
    // Of everything that counts as made it is known what the tools said, too.
    EXPECT_EQ(run({definition(), "--dry-run", "--fail-on", "half"}), 0);
    EXPECT_THAT(output(), Not(HasSubstr("run     ")));
    for (const auto& entry : fs::directory_iterator(root_ / "night.state")) {
        EXPECT_THAT(entry.path().filename().string(),
                    testing::AnyOf("lock", "run.log", "messages.log"));
    }
}

TEST_F(RunnerProgram, A_job_can_insist_on_clean_records) {
    writeRecords(3);
    write("in/r1.met", "Error: no\x09title.\r\n");
    EXPECT_EQ(run({definition()}), 0) << error();
    EXPECT_EQ(run({definition(), "--fail-on", "ERROR:*"}), 1);
    EXPECT_EQ(error(), "FAILED r1.met: the tools say \"Error: no title.\"\n");
    EXPECT_THAT(output(), HasSubstr("0 made, 1 failed, 2 up to date"));
    EXPECT_EQ(products().size(), 6U);
    EXPECT_EQ(run({definition(), "--fail-on", "ERROR:*", "--ignore", "*title"}), 0) << error();
    EXPECT_THAT(output(), HasSubstr("1 made, 0 failed, 2 up to date"));
}

TEST_F(RunnerProgram,
       Reports_tell_what_is_gone_and_stand_where_they_can_be_moved_with_the_products) {
    writeRecords(3);
    write("in/r1.met", "no title in \"r1\"\n");
    EXPECT_EQ(run({definition(), "--report", root_ / "r.csv", "--report", root_ / "r.json"}), 0)
        << error();
    EXPECT_THAT(output(), HasSubstr("The report is " + (root_ / "r.csv").string() + "\n"));
    EXPECT_THAT(contentOf(root_ / "r.json"), HasSubstr(R"("folder":"out/")"));
    EXPECT_THAT(contentOf(root_ / "r.json"), HasSubstr(R"(no title in \"…\")"));
    EXPECT_THAT(contentOf(root_ / "r.json"), HasSubstr(R"("hasRunBefore": false)"));

    write("in/r1.met", "fine\n");
    EXPECT_EQ(run({definition(), "-q"}), 0) << error();
    EXPECT_EQ(output(), "");
    fs::remove(root_ / "tools/mp");
    const std::string log = contentOf(root_ / "night.state/run.log");
    EXPECT_EQ(run({"report", definition(), "--report", root_ / "r.json"}), 0) << error();
    EXPECT_THAT(contentOf(root_ / "r.json"), HasSubstr(R"("hasRunBefore": true)"));
    EXPECT_EQ(contentOf(root_ / "night.state/run.log"), log);
}

TEST_F(RunnerProgram, An_interrupted_run_is_reported_on_too) {
    writeRecords(2);
    script("mp", "root=${7%/in/*}\necho $$ >> $root/tools.txt\n"
                 "while [ ! -e \"$root/go\" ]; do sleep 0.1; done\n"
                 "cat \"$7\" > \"$4\"; echo page > \"$6\"");
    const auto program = start({definition(), "-j1", "--report", root_ / "r.csv"});
    EXPECT_TRUE(eventually([&] { return !processesIn("tools.txt").empty(); }));
    program->send(SIGINT);
    EXPECT_TRUE(eventually([&] { return error().contains("the running tools may end"); }));
    write("go", "");
    EXPECT_EQ(program->wait(), 130);
    const std::string report = contentOf(root_ / "r.csv");
    EXPECT_THAT(report, HasSubstr("r0.met"));
    EXPECT_THAT(report, HasSubstr("not run"));
}

TEST_F(RunnerProgram, A_report_of_a_wrong_kind_or_place_is_told) {
    writeRecords(1);
    EXPECT_EQ(run({definition(), "--report", root_ / "r.pdf"}), 2);
    EXPECT_THAT(error(), HasSubstr("a report ends in .html, .json, .csv or .xml: "));
    EXPECT_THAT(products(), IsEmpty());
    EXPECT_EQ(run({definition(), "--report", root_ / "gone/r.html"}), 1);
    EXPECT_THAT(error(), HasSubstr("gone/r.html\" cannot be written: "));
    EXPECT_EQ(products().size(), 2U);
    EXPECT_EQ(run({definition(), "--dry-run"}), 0);
    EXPECT_THAT(output(), HasSubstr("keep    r0.met"));
}

TEST_F(RunnerProgram, What_tools_say_in_a_Windows_code_page_is_UTF_8_in_a_report) {
    write("in/a.met", "falta el t\xEDtulo\n");
    EXPECT_EQ(run({definition(), "--report", root_ / "r.json"}), 0) << error();
    EXPECT_THAT(contentOf(root_ / "r.json"), HasSubstr("falta el t\xC3\xADtulo"));
    EXPECT_EQ(run({definition(), "--fail-on", "*t\xC3\xADtulo"}), 1);
}

TEST_F(RunnerProgram, Other_engines_make_the_same_of_the_printed_calls) {
    writeRecords(4);
    write("in/with 'quotes' & more.met", "record");
    ASSERT_EQ(run({definition()}), 0) << error();
    const auto expected = products();
    const auto expectTheSameOf = [&](std::vector<std::string> format, const char* engine) {
        fs::remove_all(root_ / "out");
        fs::create_directory(root_ / "out");
        format.insert(format.begin(), {"commands", definition()});
        ASSERT_EQ(run(std::move(format)), 0) << error();
        const std::string in = root_ / "in";
        EXPECT_THAT(output(), AnyOf(StartsWith("cd " + in + " && "),
                                    StartsWith("cd '" + in + "' && "))); // with a blank in it
        fs::rename(root_ / "said.out", root_ / "calls");
        EXPECT_EQ(StartedProgram(inShell(engine, root_ / "calls", {}), root_ / "engine").wait(), 0);
        EXPECT_EQ(products(), expected) << engine;
    };
    expectTheSameOf({"--format", "null"}, R"(xargs -0 -n1 -P2 sh -c <"$0")");
    expectTheSameOf({}, R"(sh "$0")");
}

TEST_F(RunnerProgram, Nobody_who_stops_reading_stops_it) {
    writeRecords(3);
    StartedProgram program(inShell(R"(("$@"; echo $? >"$0") 2>&1 | true)", root_ / "status",
                                   command({definition(), "-v"})),
                           root_ / "pipe");
    EXPECT_EQ(program.wait(), 0);
    EXPECT_TRUE(eventually([&] { return !contentOf(root_ / "status").empty(); }));
    EXPECT_EQ(contentOf(root_ / "status"), "0\n");
    EXPECT_EQ(products().size(), 6U);
}

// --- shares of a definition ---

// Eight of them: killed, at once, and again with as many others.
TEST_F(RunnerProgram, Shares_at_once_make_what_one_run_makes_and_none_twice) {
    writeRecords(60);
    script("mp",
           "echo \"$7\" >> \"${7%/in/*}/calls.txt\"; cat \"$7\" > \"$4\"; echo page > \"$6\"");
    std::vector<std::unique_ptr<StartedProgram>> shares;
    for (int number = 1; number <= 8; ++number) {
        const std::string share = std::to_string(number) + "/8";
        shares.push_back(
            std::make_unique<StartedProgram>(command({definition(), "-j2", "--shard", share}),
                                             root_ / ("share" + share.substr(0, 1))));
    }
    for (const auto& share : shares) {
        EXPECT_EQ(share->wait(), 0);
    }
    EXPECT_EQ(products().size(), 120U);
    const std::string calls = contentOf(root_ / "calls.txt");
    EXPECT_EQ(std::ranges::count(calls, '\n'), 60);
    for (const std::string number : {"1/3", "2/3", "3/3"}) {
        EXPECT_EQ(run({definition(), "--shard", number}), 0) << error();
        EXPECT_THAT(output(), HasSubstr("0 made, 0 failed"));
    }
    EXPECT_EQ(run({definition()}), 0) << error();
    EXPECT_THAT(output(), HasSubstr("0 made, 0 failed, 60 up to date"));
    EXPECT_EQ(contentOf(root_ / "calls.txt"), calls);
}

TEST_F(RunnerProgram, The_calls_of_a_share_are_printed_alone) {
    writeRecords(30);
    std::ptrdiff_t calls = 0;
    for (const char* const share : {"1/4", "2/4", "3/4", "4/4"}) {
        EXPECT_EQ(run({"commands", definition(), "--shard", share}), 0) << error();
        const std::string printed = output();
        calls += std::ranges::count(printed, '\n');
    }
    EXPECT_EQ(calls, 30);
}

TEST_F(RunnerProgram, A_share_comes_from_the_engine_or_is_wrong_use) {
    writeRecords(9);
    const auto runIn = [&](std::vector<std::string> environment) {
        std::vector<std::string> words{"env"};
        words.insert(words.end(), environment.begin(), environment.end());
        for (const std::string& word : command({definition(), "--shard", "auto"})) {
            words.push_back(word);
        }
        return StartedProgram(words, root_ / "said").wait();
    };
    EXPECT_EQ(
        runIn({"SLURM_ARRAY_TASK_ID=4", "SLURM_ARRAY_TASK_MIN=2", "SLURM_ARRAY_TASK_COUNT=5"}), 0)
        << error();
    EXPECT_TRUE(fs::exists(root_ / "night.state/share-3-of-5.log"));
    EXPECT_EQ(runIn({"TARNWICK_SHARD=1/5"}), 0) << error();
    EXPECT_TRUE(fs::exists(root_ / "night.state/share-1-of-5.log"));
    EXPECT_EQ(
        runIn({"SLURM_ARRAY_TASK_ID=9", "SLURM_ARRAY_TASK_MIN=2", "SLURM_ARRAY_TASK_COUNT=5"}), 2);
    EXPECT_THAT(error(), HasSubstr("not numbered one after the other"));
    EXPECT_EQ(runIn({"TARNWICK_SHARD=6/5"}), 2);
    EXPECT_EQ(runIn({}), 2);
    EXPECT_THAT(error(), HasSubstr("--shard auto is for a task of a Slurm array"));
    EXPECT_EQ(run({definition(), "--shard", "0/5"}), 2);
}

TEST_F(RunnerProgram, A_share_and_a_run_over_all_records_are_told_who_is_at_work) {
    writeRecords(4);
    script("mp", "while [ ! -e \"${7%/in/*}/go\" ]; do sleep 0.1; done; "
                 "cat \"$7\" > \"$4\"; echo page > \"$6\"");
    const auto first = start({definition(), "--shard", "1/1"});
    EXPECT_TRUE(eventually([&] { return fs::exists(root_ / "night.state/share-1-of-1.log"); }));
    for (const std::vector<std::string>& more :
         {std::vector<std::string>{}, {"--shard", "1/1"}, {"--shard", "1/2"}}) {
        std::vector<std::string> words{definition()};
        words.insert(words.end(), more.begin(), more.end());
        StartedProgram second(command(words), root_ / "second");
        EXPECT_EQ(second.wait(), 2);
        EXPECT_THAT(contentOf(root_ / "second.err"), HasSubstr("at work on share 1 of 1"));
    }
    write("go", "");
    EXPECT_EQ(first->wait(), 0) << error();
    EXPECT_EQ(run({definition()}), 0) << error();
}

} // namespace
} // namespace tarnwick
