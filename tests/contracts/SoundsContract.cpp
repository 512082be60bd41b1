#include "tests/contracts/SoundsContract.h"

#include <gmock/gmock.h>

namespace velmorin {
namespace {

using ::testing::Contains;
using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

/// A sound at a volume, as the bench can tell.
auto near(SoundsBench& bench, const std::string& name, double volume) {
    return Pair(name, DoubleNear(volume, bench.tolerance()));
}

TEST_P(SoundsContract, eachSoundIsPlayedAtItsVolume) {
    const auto [one, other] = bench().known();
    play(one, 0.4);
    EXPECT_TRUE(hears(1));
    EXPECT_THAT(bench().played(), ElementsAre(near(bench(), one, 0.4)));
    play(other, 0.7);
    EXPECT_TRUE(hears(2));
    EXPECT_THAT(bench().played(), ElementsAre(near(bench(), one, 0.4), near(bench(), other, 0.7)));
}

TEST_P(SoundsContract, aSoundFollowsItself) {
    const auto one = bench().known().first;
    play(one, 0.3);
    EXPECT_TRUE(hears(1));
    play(one, 1.0);
    EXPECT_TRUE(hears(2));
    EXPECT_THAT(bench().played(), ElementsAre(near(bench(), one, 0.3), near(bench(), one, 1.0)));
}

TEST_P(SoundsContract, soundsAtOnceAreHeardBesideEachOther) {
    const auto [one, other] = bench().known();
    play(one, 0.3);
    play(other, 0.6);
    EXPECT_TRUE(hears(2));
    EXPECT_THAT(bench().played(), UnorderedElementsAre(near(bench(), one, 0.3), near(bench(), other, 0.6)));
}

TEST_P(SoundsContract, soundsAtOnceAreTheirNumberAndInOrder) {
    if (!bench().tellsApartWhatBeginsTogether()) GTEST_SKIP() << "an ear cannot tell";
    const auto [one, other] = bench().known();
    play(one, 0.3);
    play(one, 1.0);
    play(other, 0.5);
    play(one, 0.3);
    EXPECT_TRUE(hears(4));
    EXPECT_THAT(bench().played(), ElementsAre(near(bench(), one, 0.3), near(bench(), one, 1.0),
                                              near(bench(), other, 0.5), near(bench(), one, 0.3)));
}

TEST_P(SoundsContract, aSoundBeginsWhileAnotherIsHeard) {
    const auto [one, other] = bench().known();
    play(one, 0.5);
    bench().wait(0.2);
    play(other, 0.5);
    EXPECT_TRUE(hears(2));
    EXPECT_THAT(bench().played(), ElementsAre(near(bench(), one, 0.5), near(bench(), other, 0.5)));
}

TEST_P(SoundsContract, aSoundThatIsNotThereIsNoError) {
    const auto one = bench().known().first;
    play("no such sound", 0.4);
    play(one, 0.4);
    EXPECT_TRUE(
        bench().eventually([&] { return ::testing::Value(bench().played(), Contains(near(bench(), one, 0.4))); }));
}

} // namespace
} // namespace velmorin
