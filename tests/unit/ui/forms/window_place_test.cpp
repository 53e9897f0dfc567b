#include "ui/forms/window_place.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(WindowPlace, A_window_that_has_room_stays_where_it_is) {
    const Bounds window{.left = 10, .top = 20, .width = 300, .height = 200};
    EXPECT_EQ(movedInto({.left = 0, .top = 0, .width = 800, .height = 600}, window), window);
    EXPECT_EQ(movedInto(window, window), window);
}

// 1366 x 768 at 125 %, with a taskbar of 60.
TEST(WindowPlace, A_window_is_moved_up_from_the_taskbar) {
    EXPECT_EQ(movedInto({.left = 0, .top = 0, .width = 1366, .height = 708},
                        {.left = 152, .top = 31, .width = 1061, .height = 705}),
              (Bounds{.left = 152, .top = 3, .width = 1061, .height = 705}));
}

// 1920 x 1080 at 200 %, with a taskbar of 96.
TEST(WindowPlace, The_title_of_a_window_that_is_too_high_stays_on_the_screen) {
    EXPECT_EQ(movedInto({.left = 0, .top = 0, .width = 1920, .height = 984},
                        {.left = 111, .top = -24, .width = 1698, .height = 1128}),
              (Bounds{.left = 111, .top = 0, .width = 1698, .height = 1128}));
}

TEST(WindowPlace, The_taskbar_may_be_at_every_edge_and_the_screen_left_of_the_first) {
    const Bounds area{.left = -1200, .top = 40, .width = 1100, .height = 900};
    EXPECT_EQ(movedInto(area, {.left = -1250, .top = 0, .width = 600, .height = 500}),
              (Bounds{.left = -1200, .top = 40, .width = 600, .height = 500}));
    EXPECT_EQ(movedInto(area, {.left = -300, .top = 600, .width = 600, .height = 500}),
              (Bounds{.left = -700, .top = 440, .width = 600, .height = 500}));
    EXPECT_EQ(movedInto(area, {.left = -1000, .top = 100, .width = 1300, .height = 1000}),
              (Bounds{.left = -1200, .top = 40, .width = 1300, .height = 1000}));
}

} // namespace
} // namespace tarnwick
