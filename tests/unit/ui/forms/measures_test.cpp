#include "ui/forms/measures.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(Measures, An_inch_is_1440_twips_at_every_resolution) {
    EXPECT_EQ(toPixels(1440, 96), 96);
    EXPECT_EQ(toPixels(1440, 144), 144);
    EXPECT_EQ(toTwips(192, 192), 1440);
}

TEST(Measures, The_nearest_pixel_or_twip_is_taken) {
    EXPECT_EQ(toPixels(7, 96), 0);
    EXPECT_EQ(toPixels(8, 96), 1);
    EXPECT_EQ(toPixels(-8, 96), -1);
    EXPECT_EQ(toPixels(-7, 96), 0);
    EXPECT_EQ(toTwips(1, 110), 13);
    EXPECT_EQ(toTwips(-1, 110), -13);
}

TEST(Measures, Pixels_survive_the_way_to_twips_and_back) {
    for (const int dpi : {96, 120, 144, 168, 192, 240}) {
        for (int pixels = -50; pixels < 2000; ++pixels) {
            ASSERT_EQ(toPixels(toTwips(pixels, dpi), dpi), pixels) << dpi;
        }
    }
}

} // namespace
} // namespace tarnwick
