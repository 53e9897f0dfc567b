#include "platform/posix/posix_interruptions.hpp"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <string>
#include <thread>

namespace tarnwick {
namespace {

// What a child writes, one letter for each interruption that it hears, and how it ended.
struct ChildEnd {
    std::string heard;
    int status = 0;
};

// Does `body(write)` in a process of its own, whose signals are its own.
template <typename Body>
ChildEnd inChild(Body&& body) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) {
        return {};
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(ends[0]);
        body(ends[1]);
        ::_exit(0);
    }
    ::close(ends[1]);
    ChildEnd end;
    for (char letter = 0; ::read(ends[0], &letter, 1) == 1;) {
        end.heard += letter;
    }
    ::close(ends[0]);
    ::waitpid(child, &end.status, 0);
    return end;
}

// Sends itself the signals one by one, each when the one before was heard.
void hearEach(int to, std::initializer_list<int> signals, Interruptions& interruptions) {
    std::array<int, 2> told{};
    if (::pipe(told.data()) != 0) {
        return;
    }
    interruptions.listen([&](Interruption interruption) {
        const char letter = interruption == Interruption::Asked ? 'a' : 'o';
        static_cast<void>(!::write(to, &letter, 1));
        static_cast<void>(!::write(told[1], &letter, 1));
    });
    for (const int signal : signals) {
        ::kill(::getpid(), signal);
        char letter = 0;
        static_cast<void>(!::read(told[0], &letter, 1));
    }
}

TEST(PosixInterruptions, Ctrl_C_asks_and_a_request_or_a_closed_terminal_orders) {
    const auto end = inChild([](int to) {
        PosixInterruptions interruptions;
        hearEach(to, {SIGINT, SIGINT, SIGTERM, SIGHUP}, interruptions);
    });
    EXPECT_EQ(end.heard, "aaoo");
    EXPECT_EQ(end.status, 0);
}

TEST(PosixInterruptions, A_thread_started_later_is_not_struck) {
    const auto end = inChild([](int to) {
        PosixInterruptions interruptions;
        hearEach(to, {}, interruptions);
        std::thread([] { ::pthread_kill(::pthread_self(), SIGINT); }).join();
        const char letter = 'x';
        static_cast<void>(!::write(to, &letter, 1));
    });
    EXPECT_EQ(end.heard, "x");
    EXPECT_EQ(end.status, 0);
}

TEST(PosixInterruptions, A_signal_that_is_ignored_from_the_start_stays_so) {
    const auto end = inChild([](int to) {
        static_cast<void>(std::signal(SIGHUP, SIG_IGN)); // as nohup does
        PosixInterruptions interruptions;
        std::array<int, 2> told{};
        static_cast<void>(::pipe(told.data()));
        interruptions.listen([&](Interruption interruption) {
            const char letter = interruption == Interruption::Asked ? 'a' : 'o';
            static_cast<void>(!::write(to, &letter, 1));
            static_cast<void>(!::write(told[1], &letter, 1));
        });
        ::kill(::getpid(), SIGHUP);
        ::kill(::getpid(), SIGINT);
        char letter = 0;
        static_cast<void>(!::read(told[0], &letter, 1));
    });
    EXPECT_EQ(end.heard, "a");
}

TEST(PosixInterruptions, Afterwards_signals_are_what_they_were) {
    const auto end = inChild([](int to) {
        { // heard and gone
            PosixInterruptions interruptions;
            hearEach(to, {SIGTERM}, interruptions);
        }
        ::kill(::getpid(), SIGINT);
    });
    EXPECT_EQ(end.heard, "o");
    EXPECT_TRUE(WIFSIGNALED(end.status) && WTERMSIG(end.status) == SIGINT);
}

TEST(PosixInterruptions, Who_never_listens_changes_nothing) {
    const auto end = inChild([](int) {
        const PosixInterruptions interruptions;
        ::kill(::getpid(), SIGTERM);
    });
    EXPECT_TRUE(WIFSIGNALED(end.status) && WTERMSIG(end.status) == SIGTERM);
}

} // namespace
} // namespace tarnwick
