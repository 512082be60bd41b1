#include "app/shell/KeyTap.h"

#include <QVariant>
#include <gtest/gtest.h>

namespace velmorin {
namespace {

TEST(KeyTapTest, aPressThatIsLetGoIsATap) {
    KeyTap tap;
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        EXPECT_TRUE(tap.press(key, false));
        EXPECT_TRUE(tap.release(key, false));
    }
}

TEST(KeyTapTest, aKeyThatIsHeldIsNone) {
    KeyTap tap;
    tap.press(Qt::Key_Return, false);
    tap.press(Qt::Key_Return, true);
    EXPECT_FALSE(tap.release(Qt::Key_Return, false));
    tap.press(Qt::Key_Return, false);
    EXPECT_TRUE(tap.release(Qt::Key_Return, false)) << "the next stroke counts again";
}

TEST(KeyTapTest, aKeyThatWasDownBeforeIsNone) {
    KeyTap tap;
    EXPECT_FALSE(tap.release(Qt::Key_Return, false));
    tap.press(Qt::Key_Return, true);
    EXPECT_FALSE(tap.release(Qt::Key_Return, false));
}

TEST(KeyTapTest, repetitionsThatLookLikePressesAreNone) {
    KeyTap tap;
    tap.press(Qt::Key_Return, false);
    tap.press(Qt::Key_Return, false);
    EXPECT_FALSE(tap.release(Qt::Key_Return, false));
}

TEST(KeyTapTest, repetitionsThatComeWithReleasesAreNone) {
    KeyTap tap;
    tap.press(Qt::Key_Return, false);
    EXPECT_FALSE(tap.release(Qt::Key_Return, true));
    tap.press(Qt::Key_Return, true);
    EXPECT_FALSE(tap.release(Qt::Key_Return, false));
}

TEST(KeyTapTest, theSpaceBarCountsWhereItIsWanted) {
    KeyTap tap;
    EXPECT_FALSE(tap.press(Qt::Key_Space, false));
    EXPECT_FALSE(tap.release(Qt::Key_Space, false));
    tap.setProperty("takesSpace", true);
    EXPECT_TRUE(tap.press(Qt::Key_Space, false));
    EXPECT_TRUE(tap.release(Qt::Key_Space, false));
}

TEST(KeyTapTest, otherKeysGoOn) {
    KeyTap tap;
    EXPECT_FALSE(tap.press(Qt::Key_A, false));
    EXPECT_FALSE(tap.release(Qt::Key_A, false));
}

} // namespace
} // namespace velmorin
