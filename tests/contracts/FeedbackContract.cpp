#include "tests/contracts/FeedbackContract.h"

#include <gmock/gmock.h>

namespace velmorin {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Pair;

TEST_P(SoundsContract, aSoundIsPlayedAtItsVolume) {
    bench().sounds().play(bench().known(), 0.4);
    EXPECT_TRUE(bench().eventually([&] { return bench().played().size() == 1; }));
    EXPECT_THAT(bench().played(), ElementsAre(Pair(bench().known(), 0.4)));
}

TEST_P(SoundsContract, soundsFollowEachOther) {
    bench().sounds().play(bench().known(), 0.3);
    bench().sounds().play(bench().known(), 1.0);
    EXPECT_TRUE(bench().eventually([&] { return bench().played().size() == 2; }));
    EXPECT_THAT(bench().played(), ElementsAre(Pair(bench().known(), 0.3), Pair(bench().known(), 1.0)));
}

TEST_P(SoundsContract, aSoundThatIsNotThereIsNoError) {
    bench().sounds().play("no such sound", 0.4);
    bench().sounds().play(bench().known(), 0.4);
    EXPECT_TRUE(
        bench().eventually([&] { return ::testing::Value(bench().played(), Contains(Pair(bench().known(), 0.4))); }));
}

TEST_P(ShortcutsContract, whatIsPreparedUnderANameIsRun) {
    bench().prepare("Velmorin On");
    bench().shortcuts().run("Velmorin On");
    EXPECT_TRUE(bench().eventually([&] { return bench().runs().size() == 1; }));
    EXPECT_THAT(bench().runs(), ElementsAre("Velmorin On"));
}

TEST_P(ShortcutsContract, aNameWithoutAnythingBehindItIsNoError) {
    bench().shortcuts().run("");
    bench().shortcuts().run("no such shortcut");
    bench().prepare("Velmorin Off");
    bench().shortcuts().run("Velmorin Off");
    EXPECT_TRUE(bench().eventually([&] { return ::testing::Value(bench().runs(), Contains("Velmorin Off")); }));
}

} // namespace
} // namespace velmorin
