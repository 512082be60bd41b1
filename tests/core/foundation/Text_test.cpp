#include "core/foundation/Text.h"

#include <array>
#include <gtest/gtest.h>
#include <string>

namespace velmorin {
namespace {

using namespace std::string_view_literals;

TEST(TextTest, aWellFormedTextNeedsNoRepair) {
    for (const auto text : {""sv, "plain"sv, "zero\0byte"sv, "ä€🌱 سلام"sv, "\uFEFFmark"sv, "\uFFFD"sv,
                            "\u0080\u07FF\u0800"sv, "\uD7FF\uE000\uFFFF\U00010000\U0010FFFF"sv}) {
        EXPECT_EQ(repairedUTF8(text), text);
    }
}

struct Repair {
    std::string_view text;
    std::string_view repaired;
};

// The last four are the examples of the Unicode Standard, section 3.9.
constexpr Repair repairs[] = {
    {"a\xFFz", "a\uFFFDz"},
    {"\x80\x80", "\uFFFD\uFFFD"},
    {"\xC3", "\uFFFD"},
    {"\xE2\x82", "\uFFFD"},
    {"\xF0\x9F\x8C", "\uFFFD"},
    {"\xE2\x82z", "\uFFFDz"},
    {"\xE2\x82\xE2\x82\xAC", "\uFFFD€"},
    {"\xF0\x9F\x8C\xC3\xA4", "\uFFFDä"},
    {"\xF5\x80\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA"},
    {"\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA"},
    {"\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA\uFFFD\uFFFDB"},
    {"\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41", "\uFFFD\uFFFD\uFFFD\uFFFDA"},
};

TEST(TextTest, eachLongestBadPieceBecomesOneReplacementCharacter) {
    for (const auto& [text, repaired] : repairs) {
        EXPECT_EQ(repairedUTF8(text), repaired);
    }
}

/// Bytes on both sides of every border that UTF-8 knows.
constexpr std::array borders{'\x00', '\x7F', '\x80', '\x8F', '\x90', '\x9F', '\xA0', '\xBF',
                             '\xC0', '\xC1', '\xC2', '\xDF', '\xE0', '\xE1', '\xEC', '\xED',
                             '\xEE', '\xEF', '\xF0', '\xF1', '\xF3', '\xF4', '\xF5', '\xFF'};

void expectRepairs(const std::string& text) {
    const auto repaired = repairedUTF8(text);
    ASSERT_TRUE(isUTF8(repaired)) << testing::PrintToString(text);
    ASSERT_EQ(repaired == text, isUTF8(text)) << testing::PrintToString(text);
    // What follows a character of one byte never changes what stands before it, and the other way round.
    ASSERT_EQ(repairedUTF8("a" + text + "z"), "a" + repaired + "z") << testing::PrintToString(text);
}

TEST(TextTest, everySequenceOfBytesAtTheBordersIsRepaired) {
    for (const char first : borders) {
        for (const char second : borders) {
            for (const char third : borders) {
                for (const char fourth : borders)
                    ASSERT_NO_FATAL_FAILURE(expectRepairs({first, second, third, fourth}));
            }
        }
    }
}

TEST(TextTest, aLongTextIsRepairedWhole) {
    std::string text;
    std::string repaired;
    for (int round = 0; round < 100'000; ++round) {
        text += "ä\xE2\x82 ";
        repaired += "ä\uFFFD ";
    }
    EXPECT_EQ(repairedUTF8(text), repaired);
}

} // namespace
} // namespace velmorin
