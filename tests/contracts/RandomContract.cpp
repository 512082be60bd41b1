#include "tests/contracts/RandomContract.h"

#include <array>
#include <cstddef>
#include <set>
#include <string>

namespace velmorin {
namespace {

TEST_P(RandomContract, asManyBytesComeAsAreAskedFor) {
    for (const std::size_t count : {0U, 1U, 12U, 16U, 255U, 4096U})
        EXPECT_EQ(random().bytes(count).size(), count);
}

TEST_P(RandomContract, noTwoDrawsAreAlike) {
    std::set<Bytes> drawn;
    for (int draw = 0; draw < 100; ++draw)
        EXPECT_TRUE(drawn.insert(random().bytes(16)).second);
}

TEST_P(RandomContract, everyByteComesAboutAsOften) {
    constexpr std::size_t expected = 400;
    std::array<std::size_t, 256> counts{};
    for (const auto byte : random().bytes(expected * counts.size()))
        ++counts[byte];
    // Ten standard deviations of 20 each side: further off is no accident.
    for (const auto count : counts) {
        EXPECT_GT(count, expected - 200);
        EXPECT_LT(count, expected + 200);
    }
}

TEST_P(RandomContract, freshIdentifiersAreRandomOnesAndDiffer) {
    std::set<std::string> drawn;
    for (int draw = 0; draw < 100; ++draw) {
        const std::string text = freshID(random()).text();
        EXPECT_TRUE(drawn.insert(text).second);
        // Version 4, variant 1.
        EXPECT_EQ(text[14], '4');
        EXPECT_NE(std::string{"89AB"}.find(text[19]), std::string::npos);
    }
}

} // namespace
} // namespace velmorin
