#include "platform/posix/posix_process_locks.hpp"
#include "support/eventually.hpp"
#include "support/hosted_world.hpp"
#include "support/raised_by.hpp"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

class LocksHere : public testing::Test {
  protected:
    TemporaryFolder folder_;
    std::string host_ = folder_.hostPath();
    PosixProcessLocks locks_{Mounts::of({{.volume = "T:", .hostFolder = host_}}), "T:\\"};
};

TEST_F(LocksHere, One_holds_it_and_tells_the_next_who_it_is) {
    auto first = locks_.tryLock("T:\\lock", "process 12 since noon");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(locks_.tryLock("T:\\LOCK", "another"), nullptr);
    EXPECT_EQ(locks_.holderOf("T:\\lock"), "process 12 since noon");
    first.reset();
    const auto second = locks_.tryLock("T:\\lock", "short");
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(locks_.holderOf("T:\\lock"), "short");
}

TEST_F(LocksHere, It_is_free_when_its_process_is_killed) {
    const pid_t child = ::fork();
    if (child == 0) {
        const auto held = locks_.tryLock("T:\\lock", "child");
        ::kill(::getpid(), held != nullptr ? SIGKILL : SIGTERM);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    EXPECT_EQ(locks_.holderOf("T:\\lock"), "child");
    EXPECT_NE(locks_.tryLock("T:\\lock", "parent"), nullptr);
}

TEST_F(LocksHere, Another_process_cannot_take_it) {
    const auto held = locks_.tryLock("T:\\lock", "parent");
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(locks_.tryLock("T:\\lock", "child") == nullptr ? 7 : 8);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 7);
}

TEST_F(LocksHere, A_program_that_is_started_meanwhile_does_not_hold_it) {
    auto held = locks_.tryLock("T:\\lock", "parent");
    int closed[2]{};
    ASSERT_EQ(::pipe(closed), 0);
    const pid_t child = ::fork();
    if (child == 0) { // a program that lives until it can read no more
        ::dup2(closed[0], STDIN_FILENO);
        ::close(closed[0]);
        ::close(closed[1]);
        ::execlp("cat", "cat", nullptr);
        ::_exit(1);
    }
    ::close(closed[0]);
    held.reset();
    EXPECT_TRUE(eventually([&] { // as soon as the program has begun
        held = locks_.tryLock("T:\\lock", "again");
        return held != nullptr;
    }));
    EXPECT_EQ(::waitpid(child, nullptr, WNOHANG), 0); // still at work
    ::close(closed[1]);
    EXPECT_EQ(::waitpid(child, nullptr, 0), child);
}

TEST_F(LocksHere, A_place_where_none_can_be_is_told_by_its_number) {
    fs::create_directory(host_ + "/folder");
    std::ofstream(host_ + "/read only") << "";
    fs::permissions(host_ + "/read only", fs::perms::owner_read);
    ASSERT_EQ(::mkfifo((host_ + "/pipe").c_str(), 0600), 0);
    const auto number = [&](const std::string& name) {
        return raisedBy([&] { return locks_.tryLock("T:\\" + name, "x"); });
    };
    EXPECT_EQ(number("folder"), 75);
    EXPECT_EQ(number("read only"), 75);
    EXPECT_EQ(number("pipe"), 75);
    EXPECT_EQ(number(R"(gone\lock)"), 76);
    EXPECT_EQ(locks_.holderOf(R"(T:\gone\lock)"), "");
    EXPECT_EQ(locks_.holderOf(R"(T:\folder)"), "");
    EXPECT_EQ(locks_.holderOf(R"(T:\no lock)"), "");
    EXPECT_EQ(locks_.holderOf(R"(X:\lock)"), "");
}

TEST_F(LocksHere, Others_may_read_who_holds_it) {
    const mode_t mask = ::umask(022);
    const auto held = locks_.tryLock("T:\\lock", "me");
    ::umask(mask);
    struct stat status{};
    ASSERT_EQ(::stat((host_ + "/lock").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0644U);
}

TEST_F(LocksHere, A_link_is_no_lock_and_what_it_leads_to_stays) {
    std::ofstream(host_ + "/victim") << "precious";
    fs::create_symlink("victim", host_ + "/lock");
    fs::create_hard_link(host_ + "/victim", host_ + "/other lock");
    for (const char* const path : {R"(T:\lock)", R"(T:\other lock)"}) {
        EXPECT_EQ(raisedBy([&] { return locks_.tryLock(path, "me"); }), 75) << path;
    }
    EXPECT_EQ(fs::file_size(host_ + "/victim"), 8U);
}

} // namespace
} // namespace tarnwick
