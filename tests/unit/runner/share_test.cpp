#include "platform/run_time_error.hpp"
#include "runner/share.hpp"

#include <gmock/gmock.h>

#include <map>
#include <vector>

namespace tarnwick {
namespace {

using testing::HasSubstr;

// Records stay in their shares for ever: these numbers must never become others.
TEST(Share, Of_a_record_is_the_same_for_ever) {
    EXPECT_EQ(shareOf("lakes.met", 1), 1U);
    EXPECT_EQ(shareOf("lakes.met", 8), 5U);
    EXPECT_EQ(shareOf("tide stations.met", 8), 4U);
    EXPECT_EQ(shareOf("record 0000001.met", 1000), 617U);
    EXPECT_EQ(shareOf("record 0000002.met", 1000), 630U);
    EXPECT_EQ(shareOf("\xC3\xA9tang.met", 200), 196U);
}

TEST(Share, Each_record_is_in_exactly_one_of_them) {
    for (int record = 0; record < 100; ++record) {
        const std::string name = "r" + std::to_string(record) + ".met";
        int owners = 0;
        for (std::uint32_t number = 1; number <= 7; ++number) {
            owners += isIn({.number = number, .count = 7}, name) ? 1 : 0;
        }
        EXPECT_EQ(owners, 1) << name;
    }
}

TEST(Share, All_of_them_are_about_equal_also_where_names_are_alike) {
    for (const std::uint32_t count : {2U, 3U, 8U, 10U, 64U, 200U}) {
        std::vector<int> sizes(count);
        for (int record = 0; record < 20'000; ++record) {
            ++sizes[shareOf("record " + std::to_string(record) + ".met", count) - 1];
        }
        const int even = 20'000 / static_cast<int>(count);
        for (const int size : sizes) {
            EXPECT_NEAR(size, even, 0.5 * even) << count;
        }
    }
}

TEST(Share, Is_written_as_two_numbers) {
    EXPECT_EQ(parseShare("3/8"), (Share{.number = 3, .count = 8}));
    EXPECT_EQ(parseShare("1/1"), (Share{.number = 1, .count = 1}));
    for (const char* const wrong : {"", "3", "0/8", "9/8", "3/0", "3/8/9", "a/8", "3/ 8", "-1/8",
                                    "+3/8", "03/8", "3/4294967296", "/", "3/"}) {
        EXPECT_EQ(parseShare(wrong), std::nullopt) << wrong;
    }
}

TEST(Share, Names_its_files_and_is_known_by_them) {
    const std::optional<Share> share = Share{.number = 3, .count = 8};
    EXPECT_EQ(logNameOf(share), "share-3-of-8.log");
    EXPECT_EQ(lockNameOf(share), "share-3-of-8.lock");
    EXPECT_EQ(ownerOfLog("share-3-of-8.log"), RunsOf{share});
    EXPECT_EQ(ownerOfLock("share-3-of-8.lock"), RunsOf{share});
    EXPECT_EQ(ownerOfLog(logNameOf({})), RunsOf());
    EXPECT_EQ(ownerOfLock(lockNameOf({})), RunsOf());
    for (const char* const other :
         {"messages.log", "share-3-of-8.messages.log", "share-9-of-8.log", "share-3-of-8.lock",
          "share-03-of-8.log", "share-3.log", "share--of-.log", ".log", "share-.log"}) {
        EXPECT_EQ(ownerOfLog(other), std::nullopt) << other;
    }
}

class ShareOfAnEngine : public testing::Test {
  protected:
    [[nodiscard]] Share share() const { return shareOfEnvironment(environment()); }
    [[nodiscard]] std::string refusal() const {
        try {
            static_cast<void>(share());
        } catch (const RunTimeError& error) {
            return error.what();
        }
        return "none";
    }
    [[nodiscard]] Environment environment() const {
        return [this](std::string_view name) {
            const auto found = variables_.find(name);
            return found == variables_.end() ? std::string() : found->second;
        };
    }
    void array(const char* task, const char* first, const char* count, const char* step = "1") {
        variables_ = {{"SLURM_ARRAY_TASK_ID", task},
                      {"SLURM_ARRAY_TASK_MIN", first},
                      {"SLURM_ARRAY_TASK_COUNT", count},
                      {"SLURM_ARRAY_TASK_STEP", step}};
    }

    std::map<std::string, std::string, std::less<>> variables_;
};

TEST_F(ShareOfAnEngine, Is_the_place_of_a_task_in_its_array) {
    array("1", "1", "200");
    EXPECT_EQ(share(), (Share{.number = 1, .count = 200}));
    array("7", "0", "8");
    EXPECT_EQ(share(), (Share{.number = 8, .count = 8}));
    array("15", "5", "6", "5");
    EXPECT_EQ(share(), (Share{.number = 3, .count = 6}));
    array("4", "1", "8", "");
    EXPECT_EQ(share(), (Share{.number = 4, .count = 8}));
}

TEST_F(ShareOfAnEngine, Is_refused_where_the_tasks_do_not_follow_each_other) {
    array("9", "2", "3"); // of 2,5,9
    EXPECT_THAT(refusal(), HasSubstr("not numbered one after the other"));
    array("3", "1", "3");
    variables_["SLURM_ARRAY_TASK_MAX"] = "7"; // of 1,3,7
    EXPECT_THAT(refusal(), HasSubstr("not numbered one after the other"));
    array("6", "5", "6", "5");
    EXPECT_THAT(refusal(), HasSubstr("not numbered one after the other"));
    array("x", "1", "8");
    EXPECT_THAT(refusal(), HasSubstr("not numbered one after the other"));
    array("1", "", "");
    EXPECT_THAT(refusal(), HasSubstr("not numbered one after the other"));
    array("1", "2", "8");
    EXPECT_THAT(refusal(), HasSubstr("not numbered one after the other"));
}

TEST_F(ShareOfAnEngine, Is_else_what_a_variable_says) {
    variables_ = {{"TARNWICK_SHARD", "2/5"}};
    EXPECT_EQ(share(), (Share{.number = 2, .count = 5}));
    variables_ = {{"TARNWICK_SHARD", "6/5"}};
    EXPECT_EQ(refusal(), "TARNWICK_SHARD is no share, such as 3/8: \"6/5\".");
    variables_ = {};
    EXPECT_EQ(refusal(),
              "--shard auto is for a task of a Slurm array, or needs TARNWICK_SHARD=K/N.");
}

TEST_F(ShareOfAnEngine, Comes_with_the_name_of_its_job) {
    EXPECT_EQ(jobOfEnvironment(environment()), "");
    variables_ = {{"SLURM_JOB_ID", "17"}};
    EXPECT_EQ(jobOfEnvironment(environment()), "Slurm job 17");
    variables_["SLURM_ARRAY_JOB_ID"] = "12";
    variables_["SLURM_ARRAY_TASK_ID"] = "3";
    EXPECT_EQ(jobOfEnvironment(environment()), "Slurm job 12_3");
}

} // namespace
} // namespace tarnwick
