#include "contract/contract_fixture.hpp"

#include <atomic>
#include <chrono>
#include <thread>

namespace tarnwick {
namespace {

using namespace std::chrono_literals;

class ClockContract : public ContractTest {
  protected:
    Clock& clock = platform->clock();
};

TEST_F(ClockContract, The_steady_clock_counts_seconds_with_fractions) {
    const auto start = clock.steadySeconds();
    std::this_thread::sleep_for(300ms);
    const auto passed = clock.steadySeconds() - start;
    EXPECT_GE(passed, 0.28);
    EXPECT_LT(passed, 10);
}

TEST_F(ClockContract, The_steady_clock_never_goes_back) {
    auto last = clock.steadySeconds();
    for (int i = 0; i < 10000; ++i) {
        const auto now = clock.steadySeconds();
        ASSERT_GE(now, last);
        last = now;
    }
}

TEST_F(ClockContract, Date_and_time_are_told_in_long_formats) {
    EXPECT_GE(clock.longDate().size(), 8U) << clock.longDate();
    EXPECT_TRUE(clock.longDate().contains("20")) << clock.longDate();
    EXPECT_TRUE(clock.longTime().contains(':')) << clock.longTime();
}

class Events : public ContractTest {
  protected:
    Clock& clock = platform->clock();
    PendingEvents& events = platform->events();
};

TEST_F(Events, Everything_that_waits_runs_in_its_order) {
    std::string order;
    platform->post([&] { order += '1'; });
    platform->post([&] { order += '2'; });
    EXPECT_EQ(order, "");
    events.letRun();
    EXPECT_EQ(order, "12");
    events.letRun();
    EXPECT_EQ(order, "12");
}

TEST_F(Events, A_handler_may_let_the_rest_run) {
    std::string order;
    platform->post([&] {
        order += '1';
        events.letRun();
        order += '3';
    });
    platform->post([&] { order += '2'; });
    events.letRun();
    EXPECT_EQ(order, "123");
}

TEST_F(Events, Waiting_runs_nothing_and_ends_at_once_when_an_event_waits) {
    bool ran = false;
    platform->post([&] { ran = true; });
    const auto start = clock.steadySeconds();
    events.waitForEvent(20);
    events.waitForEvent(20); // it waits still
    EXPECT_LT(clock.steadySeconds() - start, 10);
    EXPECT_FALSE(ran);
    events.letRun();
    EXPECT_TRUE(ran);
}

TEST_F(Events, Waiting_ends_when_the_time_is_over) {
    events.letRun();
    const auto start = clock.steadySeconds();
    events.waitForEvent(0.2);
    EXPECT_GE(clock.steadySeconds() - start, 0.18);
    EXPECT_LT(clock.steadySeconds() - start, 10);
    events.waitForEvent(0);
    events.waitForEvent(-1);
    EXPECT_LT(clock.steadySeconds() - start, 10);
}

TEST_F(Events, An_event_that_comes_while_waiting_ends_it) {
    events.letRun();
    std::atomic<bool> ran = false;
    const auto start = clock.steadySeconds();
    std::thread other([&] {
        std::this_thread::sleep_for(200ms);
        platform->post([&] { ran = true; });
    });
    events.waitForEvent(20);
    const auto waited = clock.steadySeconds() - start;
    other.join();
    EXPECT_GE(waited, 0.15);
    EXPECT_LT(waited, 10);
    EXPECT_FALSE(ran);
    events.letRun();
    EXPECT_TRUE(ran);
}

} // namespace
} // namespace tarnwick
