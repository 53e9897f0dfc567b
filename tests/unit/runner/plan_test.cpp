#include "runner/plan.hpp"
#include "runner/run_log.hpp"
#include "support/outputs.hpp"
#include "unit/runner/runner_world.hpp"

#include <gmock/gmock.h>

namespace tarnwick {
namespace {

using testing::HasSubstr;

// What a dry run says, after a run that made everything.
class WhatMustRun : public testing::Test {
  protected:
    WhatMustRun() {
        machine_.writeRecord("a.met");
        machine_.writeRecord("b.met");
        EXPECT_EQ(machine_.run(), ExitStatus::Done) << machine_.terminal.error;
        machine_.processes.forget();
    }

    std::string dryRun() {
        machine_.terminal.output.clear();
        machine_.request.dryRun = true;
        EXPECT_EQ(machine_.run(), ExitStatus::Done);
        machine_.request.dryRun = false;
        EXPECT_TRUE(machine_.processes.calls().empty());
        return machine_.terminal.output;
    }
    static std::string bothFor(const std::string& reason) {
        return "run     a.met  " + reason + "\nrun     b.met  " + reason + "\n";
    }

    RunnerWorld machine_;
};

TEST_F(WhatMustRun, Is_nothing_when_nothing_has_changed) {
    EXPECT_EQ(dryRun(), "keep    a.met  up to date\nkeep    b.met  up to date\n");
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    EXPECT_TRUE(machine_.processes.calls().empty());
    EXPECT_THAT(machine_.terminal.output, HasSubstr("0 made, 0 failed, 2 up to date"));
}

TEST_F(WhatMustRun, Is_what_is_new) {
    machine_.writeRecord("c.met");
    EXPECT_EQ(dryRun(), "keep    a.met  up to date\nkeep    b.met  up to date\n"
                        "run     c.met  new\n");
}

TEST_F(WhatMustRun, Is_a_record_of_another_size_or_time) {
    machine_.writeRecord("a.met", "longer than it was");
    machine_.makeOlder(R"(C:\in\b.met)", 1);
    EXPECT_EQ(dryRun(), bothFor("record changed"));
}

TEST_F(WhatMustRun, Is_a_record_of_which_a_product_is_gone_or_another) {
    machine_.world.files().remove(R"(C:\out\a.html)");
    machine_.makeOlder(R"(C:\out\b.err)", 1);
    EXPECT_EQ(dryRun(), "run     a.met  html was removed\nrun     b.met  error was changed\n");
}

TEST_F(WhatMustRun, Is_all_when_a_tool_has_changed) {
    machine_.world.write(R"(C:\tools\mp.exe)", "mp 2");
    EXPECT_EQ(dryRun(), bothFor("MP changed"));
}

TEST_F(WhatMustRun, Is_not_all_when_another_tool_has_changed) {
    machine_.world.write(R"(C:\tools\cns.exe)", "cns 2");
    EXPECT_THAT(dryRun(), HasSubstr("keep    a.met"));
}

TEST_F(WhatMustRun, Is_all_when_the_command_is_another) {
    machine_.definition.sLanguage = "French";
    EXPECT_EQ(dryRun(), bothFor("another command"));
    machine_.definition.sLanguage = "English";
    EXPECT_THAT(dryRun(), HasSubstr("keep    a.met"));
    output(machine_.definition, "Text").bBuild = true;
    output(machine_.definition, "Text").sOutputFolder = R"(C:\out)";
    EXPECT_EQ(dryRun(), bothFor("another command"));
}

TEST_F(WhatMustRun, Is_all_when_it_is_asked_for) {
    machine_.request.settings.all = true;
    EXPECT_EQ(dryRun(), bothFor("all are to run"));
}

TEST_F(WhatMustRun, Is_what_failed_last_time) {
    machine_.writeRecord("a.met", "another text");
    machine_.processes.act = [](const ToolCall&) { return exited(1); };
    EXPECT_EQ(machine_.run(), ExitStatus::SomeFailed);
    machine_.processes.forget();
    EXPECT_EQ(dryRun(), "run     a.met  failed last time\nkeep    b.met  up to date\n");
}

// Of the records alone; their products are there, whole and older than the record.
TEST_F(WhatMustRun, Is_what_was_in_work_when_a_run_for_all_was_killed) {
    RunLog log(machine_.world.files(), R"(C:\job\night.state\run.log)",
               readRunLog(machine_.world.files(), R"(C:\job\night.state\run.log)"));
    log.write(BegunLine{.run = 1, .record = "b.met"});
    log.close();
    EXPECT_EQ(dryRun(),
              "keep    a.met  up to date\nrun     b.met  was in work when its last run ended\n");
}

TEST_F(WhatMustRun, Is_all_when_the_configuration_file_or_the_aliases_change) {
    machine_.world.write(R"(C:\job\mp.cfg)", "some: thing\r\n");
    machine_.world.write(R"(C:\job\aliases.txt)", "a=b");
    machine_.definition.bUseConfigFile = checked;
    machine_.definition.sConfigFile = R"(C:\job\mp.cfg)";
    machine_.definition.iProcessCNS = checked;
    machine_.definition.bUseAliases = checked;
    machine_.definition.sAliasesFile = R"(C:\job\aliases.txt)";
    EXPECT_EQ(machine_.run(), ExitStatus::Done) << machine_.terminal.error;
    machine_.processes.forget();
    EXPECT_THAT(dryRun(), HasSubstr("keep    a.met"));
    machine_.world.write(R"(C:\job\aliases.txt)", "a=c, longer");
    EXPECT_EQ(dryRun(), bothFor("aliases file changed"));
    machine_.world.write(R"(C:\job\mp.cfg)", "some: other thing\r\n");
    EXPECT_EQ(dryRun(), bothFor("configuration file changed"));
    machine_.world.write(R"(C:\tools\cns.exe)", "cns, longer");
    machine_.world.write(R"(C:\job\mp.cfg)", "some: thing\r\n");
}

TEST_F(WhatMustRun, Is_always_all_where_the_outputs_are_not_known) {
    machine_.world.write(R"(C:\job\mp.cfg)", "output\r\n");
    machine_.definition.bUseConfigFile = checked;
    machine_.definition.sConfigFile = R"(C:\job\mp.cfg)";
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(machine_.run(), ExitStatus::Done) << machine_.terminal.error;
        EXPECT_EQ(machine_.processes.calls().size(), 2U);
        machine_.processes.forget();
    }
    EXPECT_EQ(dryRun(), bothFor("its outputs are not known"));
    EXPECT_THAT(machine_.terminal.error, HasSubstr("one at a time, and always"));
}

// A folder is asked for once, however many products lie in it.
TEST_F(WhatMustRun, Is_planned_with_one_question_for_each_folder) {
    class CountingStamps final : public FileStamps {
      public:
        explicit CountingStamps(const FileStamps& stamps) : stamps_(stamps) {}
        [[nodiscard]] std::optional<Stamp> stampOf(std::string_view path) const override {
            ++files;
            return stamps_.stampOf(path);
        }
        [[nodiscard]] StampedListing listStamped(std::string_view folder) const override {
            folders.emplace_back(folder);
            return stamps_.listStamped(folder);
        }
        mutable int files = 0;
        mutable std::vector<std::string> folders;

      private:
        const FileStamps& stamps_;
    };
    for (int record = 0; record < 50; ++record) {
        machine_.writeRecord("r" + std::to_string(record) + ".met");
    }
    EXPECT_EQ(machine_.run(), ExitStatus::Done);
    const CountingStamps counting(machine_.stamps);
    const JobServices services{.files = machine_.world.files(),
                               .stamps = counting,
                               .paths = machine_.paths,
                               .canStart = [](const std::string&) { return true; }};
    const auto [job, faults] = checkJob(machine_.definition, {}, services);
    KnownFolders folders(machine_.world.files());
    const Products products(job.definition, folders);
    const auto history = readStateHistory(machine_.world.files(), machine_.locks,
                                          R"(C:\job\night.state)", {}, "process 1 on HERE");
    const auto now = conditionsNow(job.definition, products, counting);
    EXPECT_EQ(planRun(job, products, history, now, counting, false).upToDate, 52U);
    EXPECT_EQ(counting.files, 1); // MP
    EXPECT_THAT(counting.folders, testing::ElementsAre(R"(C:\in)", R"(C:\out\)"));
}

// Names match without regard to case.
TEST(Clashes, Two_records_that_would_make_the_same_file_are_both_named_and_not_run) {
    RunnerWorld machine;
    machine.definition.sInputExtensions = "*.*";
    for (const char* const name : {"a.met", "A.txt", "b.met", "c.d.met"}) {
        machine.writeRecord(name);
    }
    EXPECT_EQ(machine.run(), ExitStatus::SomeFailed);
    EXPECT_THAT(machine.terminal.error,
                HasSubstr("FAILED a.met: \"A.txt\" would make the same file, \"a.err\"\n"
                          "FAILED A.txt: \"a.met\" would make the same file, \"A.err\"\n"));
    EXPECT_EQ(machine.processes.calls().size(), 2U);
    EXPECT_THAT(machine.terminal.output, HasSubstr("2 made, 2 failed"));
}

TEST(Clashes, A_record_that_CNS_would_overwrite_runs_only_in_place) {
    RunnerWorld machine;
    machine.definition.iProcessCNS = checked;
    machine.definition.sCNSOutputFolder = R"(C:\in)";
    machine.definition.sCNSOutputExtension = ".met";
    machine.writeRecord("a.met");
    EXPECT_EQ(machine.run(), ExitStatus::SomeFailed);
    EXPECT_THAT(machine.terminal.error, HasSubstr("a.met: what is made of it would overwrite it; "
                                                  "--in-place allows that"));
    EXPECT_EQ(machine.world.read(R"(C:\in\a.met)"), "record");
    machine.request.job.inPlace = true;
    EXPECT_EQ(machine.run(), ExitStatus::Done) << machine.terminal.error;
    EXPECT_EQ(machine.world.read(R"(C:\in\a.met)"), "-o of a.met");
    machine.processes.forget();
    EXPECT_EQ(machine.run(), ExitStatus::Done); // what it has become is what its run left
    EXPECT_TRUE(machine.processes.calls().empty());
}

TEST(Clashes, No_record_overwrites_another_one) {
    RunnerWorld machine;
    machine.definition.sInputExtensions = "*.met;*.err";
    output(machine.definition, "Error").sOutputFolder = R"(C:\in)";
    machine.writeRecord("a.met");
    machine.writeRecord("a.err", "precious");
    machine.request.job.inPlace = true;
    EXPECT_EQ(machine.run(), ExitStatus::SomeFailed);
    EXPECT_THAT(machine.terminal.error,
                HasSubstr("FAILED a.met: what is made of it would overwrite the record \"a.err\""));
    EXPECT_THAT(machine.terminal.error, HasSubstr("FAILED a.err: \"a.met\" would make the same"));
    EXPECT_EQ(machine.world.read(R"(C:\in\a.err)"), "precious");
    EXPECT_TRUE(machine.processes.calls().empty());
}

} // namespace
} // namespace tarnwick
