#include "contract/contract_fixture.hpp"
#include "contract/runner_platform.hpp"
#include "support/eventually.hpp"

#include <atomic>
#include <thread>

namespace tarnwick {
namespace {

class ProcessLocksContract : public ContractTest {
  protected:
    std::unique_ptr<RunnerPlatform> runner = makeRunnerPlatform(*platform);
    ProcessLocks& locks = runner->locks();
};

TEST_F(ProcessLocksContract, One_holds_it_and_tells_the_next_who_it_is) {
    auto first = locks.tryLock(in("lock"), "process 12 on HOST, since noon");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(locks.tryLock(in("lock"), "another"), nullptr);
    EXPECT_EQ(locks.tryLock(in("LOCK"), "another"), nullptr);
    EXPECT_EQ(locks.holderOf(in("lock")), "process 12 on HOST, since noon");
    first.reset();
    const auto second = locks.tryLock(in("lock"), "short");
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(locks.holderOf(in("lock")), "short");
}

TEST_F(ProcessLocksContract, Whoever_wants_can_read_who_holds_it) {
    const auto held = locks.tryLock(in("lock"), "me");
    ASSERT_NE(held, nullptr);
    EXPECT_EQ(get("lock"), "me");
}

TEST_F(ProcessLocksContract, A_file_that_lies_there_is_taken) {
    put("lock", std::string(100'000, 'x'));
    EXPECT_EQ(locks.holderOf(in("lock")), std::string(longestHolder, 'x'));
    const auto held = locks.tryLock(in("lock"), "me");
    ASSERT_NE(held, nullptr);
    EXPECT_EQ(locks.holderOf(in("lock")), "me");
}

TEST_F(ProcessLocksContract, Its_holder_may_say_more_and_less_later) {
    const auto held = locks.tryLock(in("lock"), "process 12");
    ASSERT_NE(held, nullptr);
    held->write("process 12, still there");
    EXPECT_EQ(locks.holderOf(in("lock")), "process 12, still there");
    held->write("");
    EXPECT_EQ(locks.holderOf(in("lock")), "");
    EXPECT_TRUE(locks.isHeld(in("lock")));
}

TEST_F(ProcessLocksContract, Others_see_whether_it_is_held) {
    EXPECT_FALSE(locks.isHeld(in("lock")));
    EXPECT_FALSE(exists("lock"));
    EXPECT_FALSE(locks.isHeld(in("a?b")));
    auto held = locks.tryLock(in("lock"), "me");
    ASSERT_NE(held, nullptr);
    EXPECT_TRUE(locks.isHeld(in("lock")));
    EXPECT_TRUE(locks.isHeld(in("LOCK")));
    held.reset();
    EXPECT_FALSE(locks.isHeld(in("lock")));
    const auto other = runner->start(runner->program("runner_stub"),
                                     {"hold_lock", platform->libraryPath(in("lock"))});
    EXPECT_TRUE(eventually([&] { return locks.isHeld(in("lock")); }));
}

TEST_F(ProcessLocksContract, Whoever_looks_keeps_nobody_from_taking_it) {
    std::atomic<bool> enough = false;
    const std::jthread looking([&] {
        while (!enough) {
            static_cast<void>(locks.isHeld(in("lock")));
        }
    });
    for (int time = 0; time < 500; ++time) {
        EXPECT_NE(locks.tryLock(in("lock"), "me"), nullptr) << time;
    }
    enough = true;
}

TEST_F(ProcessLocksContract, Nobody_has_to_give_his_name) {
    const auto held = locks.tryLock(in("lock"), "");
    ASSERT_NE(held, nullptr);
    EXPECT_EQ(locks.tryLock(in("lock"), "another"), nullptr);
    EXPECT_EQ(locks.holderOf(in("lock")), "");
}

TEST_F(ProcessLocksContract, It_is_held_against_another_process_and_free_when_that_is_killed) {
    const auto other = runner->start(runner->program("runner_stub"),
                                     {"hold_lock", platform->libraryPath(in("lock"))});
    ASSERT_TRUE(eventually([&] { return locks.holderOf(in("lock")) == "another process"; }));
    EXPECT_EQ(locks.tryLock(in("lock"), "me"), nullptr);
    EXPECT_EQ(locks.holderOf(in("lock")), "another process");
    other->kill();
    EXPECT_TRUE(eventually([&] { return locks.tryLock(in("lock"), "me") != nullptr; }));
    EXPECT_EQ(locks.holderOf(in("lock")), "me");
}

TEST_F(ProcessLocksContract, A_place_where_none_can_be_is_told_by_its_number) {
    files.createFolder(in("folder"));
    put("read only");
    platform->makeReadOnly(in("read only"));
    const auto number = [&](const std::string& path) {
        EXPECT_EQ(locks.holderOf(path), "");
        return raisedBy([&] { return locks.tryLock(path, "me"); });
    };
    EXPECT_EQ(number(in("folder")), 75);
    EXPECT_EQ(number(in("read only")), 75);
    EXPECT_EQ(number(in(R"(gone\lock)")), 76);
    EXPECT_EQ(number(in("a?b")), 52);
    EXPECT_EQ(number(platform->missingDrive() + R"(\lock)"), 68);
    EXPECT_EQ(locks.holderOf(in("no lock")), "");
    EXPECT_FALSE(exists("no lock"));
}

} // namespace
} // namespace tarnwick
