#include "contract/contract_fixture.hpp"

#include <algorithm>
#include <chrono>

namespace tarnwick {
namespace {

class ClockContract : public ContractTest {
  protected:
    Clock& clock = platform->clock();
};

TEST_F(ClockContract, The_steady_clock_counts_seconds_with_fractions) {
    const auto begin = std::chrono::steady_clock::now();
    const auto start = clock.steadySeconds();
    platform->letPass(0.3);
    const auto passed = clock.steadySeconds() - start;
    const std::chrono::duration<double> outside = std::chrono::steady_clock::now() - begin;
    EXPECT_GE(passed, 0.28);
    EXPECT_LT(passed, 2 * std::max(outside.count(), 0.3)); // milliseconds would be 300
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

// Nobody waits so long: what does not end by itself is ended as a failure.
constexpr double aDay = 86400;

TEST_F(Events, Waiting_runs_nothing_and_ends_at_once_when_an_event_waits) {
    bool ran = false;
    platform->post([&] { ran = true; });
    const auto start = clock.steadySeconds();
    events.waitForEvent(aDay);
    events.waitForEvent(aDay); // it waits still
    EXPECT_LT(clock.steadySeconds() - start, aDay);
    EXPECT_FALSE(ran);
    events.letRun();
    EXPECT_TRUE(ran);
}

TEST_F(Events, Waiting_ends_when_the_time_is_over_and_not_before) {
    events.letRun();
    const auto start = clock.steadySeconds();
    events.waitForEvent(0.2);
    EXPECT_GE(clock.steadySeconds() - start, 0.18);
}

TEST_F(Events, Waiting_for_no_time_or_less_ends_and_turns_no_clock_back) {
    const auto start = clock.steadySeconds();
    events.waitForEvent(0);
    events.waitForEvent(-1);
    EXPECT_GE(clock.steadySeconds(), start);
}

TEST_F(Events, An_event_that_comes_while_waiting_ends_it_and_runs_later) {
    events.letRun();
    bool ran = false;
    platform->postDuring([&] { ran = true; }, [&] { events.waitForEvent(aDay); });
    EXPECT_FALSE(ran);
    events.letRun();
    EXPECT_TRUE(ran);
}

} // namespace
} // namespace tarnwick
