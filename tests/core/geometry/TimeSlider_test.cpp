#include "core/geometry/TimeSlider.h"

#include <gtest/gtest.h>
#include <limits>

namespace velmorin {
namespace {

TEST(TimeSliderTest, aValueIsTheNearestOnTheGrid) {
    EXPECT_EQ(TimeSlider::stored(97, 15, 480, 15), 90);
    EXPECT_EQ(TimeSlider::stored(98, 15, 480, 15), 105);
    EXPECT_EQ(TimeSlider::stored(97.5, 15, 480, 15), 105) << "halves go away from zero";
    EXPECT_EQ(TimeSlider::stored(-7.5, -60, 60, 15), -15);
}

TEST(TimeSliderTest, theBoundsHold) {
    EXPECT_EQ(TimeSlider::stored(1'000, 15, 480, 15), 480);
    EXPECT_EQ(TimeSlider::stored(0, 15, 480, 15), 15);
    EXPECT_EQ(TimeSlider::stored(100, 60, 30, 15), 30) << "where they cross, the upper one";
}

TEST(TimeSliderTest, anyNumberHasAPlace) {
    EXPECT_EQ(TimeSlider::stored(1e300, 1, 10, 1), 10);
    EXPECT_EQ(TimeSlider::stored(-1e300, 1, 10, 1), 1);
    EXPECT_EQ(TimeSlider::stored(std::numeric_limits<double>::quiet_NaN(), 1, 10, 1), 1);
    EXPECT_EQ(TimeSlider::stored(3.4, 1, 10, 0), 3) << "a step is at least 1";
}

} // namespace
} // namespace velmorin
