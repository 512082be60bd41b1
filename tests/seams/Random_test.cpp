#include "app/seams/Random.h"

#include <gmock/gmock.h>
#include <vector>

namespace velmorin {
namespace {

using ::testing::ElementsAre;

/// Gives the same byte for ever and notes how many were asked for.
class OneByteRandom final : public Random {
public:
    explicit OneByteRandom(std::uint8_t byte) : m_byte{byte} {}
    Bytes bytes(std::size_t count) override {
        counts.push_back(count);
        return Bytes(count, m_byte);
    }

    std::vector<std::size_t> counts;

private:
    std::uint8_t m_byte;
};

TEST(RandomTest, aFreshIDIsOfVersion4WhateverIsDrawn) {
    OneByteRandom zeros{0x00};
    OneByteRandom ones{0xFF};
    OneByteRandom mixed{0xA5};
    EXPECT_EQ(freshID(zeros).text(), "00000000-0000-4000-8000-000000000000");
    EXPECT_EQ(freshID(ones).text(), "FFFFFFFF-FFFF-4FFF-BFFF-FFFFFFFFFFFF");
    EXPECT_EQ(freshID(mixed).text(), "A5A5A5A5-A5A5-45A5-A5A5-A5A5A5A5A5A5");
}

TEST(RandomTest, aFreshIDDrawsSixteenBytesOnce) {
    OneByteRandom random{0x01};
    (void)freshID(random);
    (void)freshID(random);
    EXPECT_THAT(random.counts, ElementsAre(16U, 16U));
}

} // namespace
} // namespace velmorin
