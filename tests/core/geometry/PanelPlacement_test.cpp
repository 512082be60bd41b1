#include "core/geometry/PanelPlacement.h"

#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

namespace velmorin {
namespace {

using Screens = std::vector<Rectangle>;

const Screens twoScreens{{0, 0, 1440, 900}, {1440, 0, 1920, 1080}};

TEST(PanelPlacementTest, theKeyIsTheSameWhateverTheOrderOfTheScreens) {
    const Screens forwards{{0, 0, 1440, 900}, {-1920, 0, 1920, 1080}};
    const Screens backwards{forwards[1], forwards[0]};
    EXPECT_EQ(PanelPlacement::arrangementKey(forwards), "-1920,0,1920,1080;0,0,1440,900");
    EXPECT_EQ(PanelPlacement::arrangementKey(backwards), PanelPlacement::arrangementKey(forwards));
    EXPECT_EQ(PanelPlacement::arrangementKey({}), "");
}

TEST(PanelPlacementTest, theKeyIsSortedAsText) {
    const Screens screens{{200, 0, 1, 1}, {1000, 0, 1, 1}, {0, 0, 1, 1}};
    EXPECT_EQ(PanelPlacement::arrangementKey(screens), "0,0,1,1;1000,0,1,1;200,0,1,1");
}

TEST(PanelPlacementTest, fractionsAreCutTowardsZero) {
    const Screens screens{{-0.5, 0.9, 1440.5, -1.9}};
    EXPECT_EQ(PanelPlacement::arrangementKey(screens), "0,0,1440,-1");
}

TEST(PanelPlacementTest, numbersThatNoIntegerHoldsHaveAKeyToo) {
    const double infinity = std::numeric_limits<double>::infinity();
    const Screens screens{{infinity, -infinity, std::numeric_limits<double>::quiet_NaN(), 1e300}};
    EXPECT_FALSE(PanelPlacement::arrangementKey(screens).empty());
}

TEST(PanelPlacementTest, anotherArrangementHasAnotherKey) {
    EXPECT_NE(PanelPlacement::arrangementKey(twoScreens), PanelPlacement::arrangementKey(Screens{twoScreens[0]}));
}

TEST(PanelPlacementTest, ofEqualOverlapsTheScreenListedFirstIsTaken) {
    EXPECT_EQ(PanelPlacement::origin({1390, 100}, {100, 50}, twoScreens), (Point{1340, 100}));
    const Screens swapped{twoScreens[1], twoScreens[0]};
    EXPECT_EQ(PanelPlacement::origin({1390, 100}, {100, 50}, swapped), (Point{1440, 100}));
}

TEST(PanelPlacementTest, aPanelAcrossTwoScreensSnapsIntoTheOneHoldingMoreOfIt) {
    EXPECT_EQ(PanelPlacement::origin({1400, 100}, {100, 50}, twoScreens), (Point{1440, 100}));
    EXPECT_EQ(PanelPlacement::origin({1350, 100}, {100, 50}, twoScreens), (Point{1340, 100}));
}

TEST(PanelPlacementTest, aPanelLargerThanItsScreenEndsAtTheUpperEdge) {
    EXPECT_EQ(PanelPlacement::origin({10, 10}, {2'000, 1'000}, Screens{{0, 0, 1440, 900}}), (Point{-560, -100}));
}

TEST(PanelPlacementTest, aPanelOffAllScreensHasNoPlace) {
    EXPECT_EQ(PanelPlacement::origin({0, 0}, {100, 50}, {}), std::nullopt);
    EXPECT_EQ(PanelPlacement::origin({-200, 0}, {100, 50}, twoScreens), std::nullopt);
    EXPECT_EQ(PanelPlacement::origin({-100, 0}, {100, 50}, twoScreens), std::nullopt) << "touching is not overlapping";
    EXPECT_EQ(PanelPlacement::origin({0, 0}, {0, 0}, twoScreens), std::nullopt);
}

TEST(PanelPlacementTest, aPanelInsideAScreenStaysWhereItIs) {
    std::mt19937 random{3};
    const auto upTo = [&random](double bound) { return static_cast<double>(random() % 100'000) / 100'000.0 * bound; };
    for (int round = 0; round < 10'000; ++round) {
        const Rectangle screen{upTo(4'000) - 2'000, upTo(4'000) - 2'000, 800 + upTo(2'000), 600 + upTo(2'000)};
        const Size size{1 + upTo(600), 1 + upTo(400)};
        const Point inside{screen.x + upTo(screen.width - size.width), screen.y + upTo(screen.height - size.height)};
        const auto kept = PanelPlacement::origin(inside, size, Screens{screen});
        ASSERT_TRUE(kept);
        EXPECT_NEAR(kept->x, inside.x, 1e-6);
        EXPECT_NEAR(kept->y, inside.y, 1e-6);

        const Point anywhere{upTo(6'000) - 3'000, upTo(6'000) - 3'000};
        const auto moved = PanelPlacement::origin(anywhere, size, Screens{screen});
        if (!moved) continue;
        EXPECT_GE(moved->x, screen.x - 1e-6);
        EXPECT_LE(moved->x + size.width, screen.maxX() + 1e-6);
        EXPECT_GE(moved->y, screen.y - 1e-6);
        EXPECT_LE(moved->y + size.height, screen.maxY() + 1e-6);
    }
}

} // namespace
} // namespace velmorin
