#include "core/rules/Friction.h"

#include "core/foundation/Text.h"
#include "tests/support/TestData.h"

#include <gtest/gtest.h>
#include <limits>

namespace velmorin {
namespace {

const Date now{800'000'000};

bool canConfirm(std::string_view reason) {
    return Friction::canConfirmExit(reason, now, now);
}

std::string repeated(std::string_view text, int count) {
    std::string all;
    for (int round = 0; round < count; ++round)
        all += text;
    return all;
}

TEST(FrictionTest, thePauseGrowsWithEachAttemptAndStopsAtAMinute) {
    const std::array expected{5.0, 10.0, 20.0, 30.0, 45.0, 60.0, 60.0};
    for (std::size_t attempt = 1; attempt <= expected.size(); ++attempt) {
        EXPECT_EQ(Friction::warningPauseSeconds(static_cast<std::int64_t>(attempt)), expected[attempt - 1]);
    }
    EXPECT_EQ(Friction::warningPauseSeconds(0), 5.0);
    EXPECT_EQ(Friction::warningPauseSeconds(-3), 5.0);
    EXPECT_EQ(Friction::warningPauseSeconds(std::numeric_limits<std::int64_t>::max()), 60.0);
    EXPECT_EQ(Friction::warningPauseSeconds(std::numeric_limits<std::int64_t>::min()), 5.0);
}

TEST(FrictionTest, tenLettersAtTheEndOfTheWaitAreAReason) {
    EXPECT_TRUE(canConfirm("abcdefghij"));
}

TEST(FrictionTest, nineLettersAreTooFew) {
    EXPECT_FALSE(canConfirm("abcdefghi"));
}

TEST(FrictionTest, whiteSpaceAroundNineLettersDoesNotHelp) {
    EXPECT_FALSE(canConfirm("          abcdefghi          "));
    EXPECT_FALSE(canConfirm("\u2028\u00A0\u3000\t\r\n\u0085abcdefghi\v\f\u2029\u1680"));
}

TEST(FrictionTest, aBlankInsideCounts) {
    EXPECT_TRUE(canConfirm("abcde fghi"));
}

TEST(FrictionTest, tenEmojiOfSeveralCodePointsEachAreAReason) {
    for (const char* emoji : {"👩‍👩‍👧‍👦", "🇮🇷", "👍🏽"}) {
        EXPECT_TRUE(canConfirm(repeated(emoji, 10))) << emoji;
        EXPECT_FALSE(canConfirm(repeated(emoji, 9))) << emoji;
    }
}

TEST(FrictionTest, aLetterWithACombiningMarkCountsOnce) {
    EXPECT_TRUE(canConfirm("abcdefghie\u0301"));
    EXPECT_FALSE(canConfirm("abcdefghe\u0301"));
    EXPECT_FALSE(canConfirm("abcdefge\u0301e\u0301"));
}

TEST(FrictionTest, theBestReasonDoesNotShortenTheWait) {
    EXPECT_FALSE(Friction::canConfirmExit("a good and honest reason", now + 0.001, now));
    EXPECT_TRUE(Friction::canConfirmExit("a good and honest reason", now - 0.001, now));
}

TEST(FrictionTest, withoutAReasonTheWaitAloneIsNotEnough) {
    EXPECT_FALSE(Friction::canConfirmExit("", now - 1'000.0, now));
}

/// A text of the code points in a line of hexadecimal numbers.
std::string textOf(std::string_view codePoints) {
    std::string text;
    for (std::size_t place = 0; place < codePoints.size();) {
        const auto end = std::min(codePoints.find(' ', place), codePoints.size());
        const auto code = std::stoul(std::string{codePoints.substr(place, end - place)}, nullptr, 16);
        const auto byte = [&text](unsigned long value) { text += static_cast<char>(value); };
        if (code < 0x80) {
            byte(code);
        } else if (code < 0x800) {
            byte(0xC0 | (code >> 6)), byte(0x80 | (code & 0x3F));
        } else if (code < 0x10000) {
            byte(0xE0 | (code >> 12)), byte(0x80 | (code >> 6 & 0x3F)), byte(0x80 | (code & 0x3F));
        } else {
            byte(0xF0 | (code >> 18)), byte(0x80 | (code >> 12 & 0x3F));
            byte(0x80 | (code >> 6 & 0x3F)), byte(0x80 | (code & 0x3F));
        }
        place = end + 1;
    }
    return text;
}

/// Fills each text up to just enough characters, and to one too few, with letters that join nothing.
void expectCharacters(std::string_view fileName) {
    int count = 0;
    for (const auto& line : testDataLines(fileName)) {
        const auto parts = columns(line);
        if (parts[0] == "codepoints_hex") continue;
        const auto text = textOf(parts[0]);
        const int clusters = std::stoi(parts[1]);
        EXPECT_EQ(characterCount(text), clusters) << line;
        // A letter on both sides keeps white space from being trimmed off; a control character between them ends
        // whatever the text could join.
        const auto filled = [&](int characters) {
            return "a\x01" + text + "\x01" + std::string(static_cast<std::size_t>(characters - clusters - 3), 'a');
        };
        if (clusters <= 6) {
            EXPECT_TRUE(canConfirm(filled(10))) << line;
        }
        if (clusters <= 5) {
            EXPECT_FALSE(canConfirm(filled(9))) << line;
        }
        ++count;
    }
    EXPECT_GE(count, 600);
}

TEST(FrictionTest, charactersAreThoseOfTheUnicodeTestData) {
    expectCharacters("grapheme.tsv");
}

TEST(FrictionTest, everyEmojiOfTheUnicodeTestDataIsOneCharacter) {
    expectCharacters("emoji.tsv");
}

} // namespace
} // namespace velmorin
