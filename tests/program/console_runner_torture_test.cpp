// tarnwick-run.exe, ended in the middle of its work again and again: one more run makes all
// products as an undisturbed run does.
//
// TARNWICK_TORTURE in the environment: how often it is ended.

#include "program/console_runner.hpp"

#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <random>
#include <thread>

namespace tarnwick::test {
namespace {

namespace fs = std::filesystem;
using std::chrono::microseconds;
using std::chrono::steady_clock;

int endings() {
    const char* const asked = std::getenv("TARNWICK_TORTURE");
    return asked == nullptr ? 5 : std::stoi(asked);
}

TEST_F(ConsoleRunner, Ended_at_any_moment_it_loses_nothing_but_what_was_in_work) {
    place.takeDemoRecords();
    define("Convert HyperLink To Relative Path=True\r\n");
    const auto begin = steady_clock::now();
    ASSERT_EQ(run({"batch.ini", "-j2", "--state", "undisturbed"}).code, 0);
    const auto whole =
        std::chrono::duration_cast<microseconds>(steady_clock::now() - begin).count();
    const auto expected = products();
    removeProducts();
    const int times = endings();
    ASSERT_GT(times, 0);
    std::mt19937 random(20261122);
    int halfMade = 0;
    for (int time = 0; time < times; ++time) {
        // Now and then there is something to do again for the next ones.
        if (time % 4 == 3) {
            removeProducts();
        }
        const auto program = start(time % 5 == 4 ? "-j2 --all" : "-j2");
        std::uniform_int_distribution<long long> moment(0, whole);
        std::this_thread::sleep_for(microseconds(moment(random)));
        program->end();
        const auto made = products().size();
        halfMade += made > 0 && made < expected.size() ? 1 : 0;
    }
    const auto last = run({"batch.ini", "-j2"});
    EXPECT_EQ(last.code, 0) << last.said;
    EXPECT_TRUE(products() == expected);
    EXPECT_THAT(run({"batch.ini"}).said, testing::HasSubstr("0 made, 0 failed, 16 up to date"));
    for (const auto& entry : fs::directory_iterator(place.path("batch.state"))) {
        EXPECT_THAT(entry.path().filename().string(),
                    testing::AnyOf("lock", "run.log", "messages.log"));
    }
    std::cout << halfMade << " of " << times << " left a part of the products\n";
}

} // namespace
} // namespace tarnwick::test
