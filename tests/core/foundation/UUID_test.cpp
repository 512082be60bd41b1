#include "core/foundation/UUID.h"

#include <gtest/gtest.h>
#include <set>

namespace velmorin {
namespace {

TEST(UUIDTest, theTextIsCanonicalAndUpperCaseAndIsReadInEitherCase) {
    const auto lower = UUID::parse("0f1e2d3c-4b5a-4697-8877-665544332211");
    ASSERT_TRUE(lower);
    EXPECT_EQ(lower->text(), "0F1E2D3C-4B5A-4697-8877-665544332211");
    EXPECT_EQ(UUID::parse("0F1E2D3C-4b5a-4697-8877-665544332211"), lower);
    EXPECT_EQ(UUID{}.text(), "00000000-0000-0000-0000-000000000000");
}

TEST(UUIDTest, anyOtherTextIsNone) {
    for (const char* text : {"", "0F1E2D3C-4B5A-4697-8877-66554433221", "0F1E2D3C-4B5A-4697-8877-6655443322111",
                             "0F1E2D3C4B5A46978877665544332211", "{F1E2D3C-4B5A-4697-8877-66554433221}",
                             "0F1E2D3C-4B5A-4697-8877-66554433221G", "0F1E2D3C-4B5A-4697-88776-65544332211",
                             "0F1E2D3C-4B5A-4697-8877-66554433221\xC3"}) {
        EXPECT_FALSE(UUID::parse(text)) << text;
    }
}

TEST(UUIDTest, freshOnesAreRandomOfVersionFourAndDiffer) {
    std::set<UUID> seen;
    for (int round = 0; round < 1'000; ++round) {
        const auto uuid = UUID::random();
        const auto text = uuid.text();
        ASSERT_EQ(text[14], '4') << text;
        ASSERT_NE(std::string{"89AB"}.find(text[19]), std::string::npos) << text;
        ASSERT_EQ(UUID::parse(text), uuid);
        ASSERT_TRUE(seen.insert(uuid).second);
    }
}

TEST(UUIDTest, everyOtherBitIsDrawn) {
    UUID ones;
    UUID zeros;
    zeros.bytes.fill(0xFF);
    for (int round = 0; round < 200; ++round) {
        const auto uuid = UUID::random();
        for (std::size_t index = 0; index < uuid.bytes.size(); ++index) {
            ones.bytes[index] |= uuid.bytes[index];
            zeros.bytes[index] &= uuid.bytes[index];
        }
    }
    EXPECT_EQ(ones.text(), "FFFFFFFF-FFFF-4FFF-BFFF-FFFFFFFFFFFF");
    EXPECT_EQ(zeros.text(), "00000000-0000-4000-8000-000000000000");
}

} // namespace
} // namespace velmorin
