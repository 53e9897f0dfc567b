// tarnwick-run.exe, ended in the middle of its work again and again: one more run makes all
// products as an undisturbed run does.
//
// TARNWICK_TORTURE in the environment: how often it is ended.

#include "program/console_runner.hpp"
#include "program/torture.hpp"

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>

namespace tarnwick::test {
namespace {

namespace fs = std::filesystem;
using std::chrono::microseconds;
using std::chrono::steady_clock;

TEST_F(ConsoleRunner, Ended_at_any_moment_it_loses_nothing_but_what_was_in_work) {
    place.takeDemoRecords();
    define("Convert HyperLink To Relative Path=True\r\n");
    const auto begin = steady_clock::now();
    ASSERT_EQ(run({"batch.ini", "-j2", "--state", "undisturbed"}).code, 0);
    const auto whole = std::chrono::duration_cast<microseconds>(steady_clock::now() - begin);
    const auto expected = products();
    removeProducts();
    const int times = endings(5);
    RandomMoments moments;
    int halfMade = 0;
    for (int time = 0; time < times; ++time) {
        // Now and then there is something to do again for the next ones.
        if (time % 4 == 3) {
            removeProducts();
        }
        const auto program = start(time % 5 == 4 ? "-j2 --all" : "-j2");
        moments.waitWithin(whole);
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
    expectSomeInTheMiddle(halfMade, times); // with a part of the products
}

} // namespace
} // namespace tarnwick::test
