#include "core/language/QuoteDeck.h"

#include "core/foundation/JSONCoding.h"
#include "core/foundation/RawValue.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <set>

namespace velmorin {
namespace {

constexpr auto inGerman = AppLanguage::german;
constexpr auto inPersian = AppLanguage::persian;

/// A source of random numbers that is the same for each seed.
RandomDraw seeded(std::uint64_t seed) {
    return [random = std::mt19937_64{seed}](std::uint64_t bound) mutable { return random() % bound; };
}

/// A shuffle with this draw leaves every index where it is, so that they are dealt from the last to the first.
const RandomDraw highest = [](std::uint64_t bound) { return bound - 1; };

std::int64_t indexDealt(QuoteDeck& deck, QuoteCategory category, AppLanguage language, const RandomDraw& draw) {
    const auto text = deck.next(category, language, draw);
    const auto index = deck.last.at(std::string{rawValue(category)});
    EXPECT_EQ(text, sentences(category, language)[static_cast<std::size_t>(index)]);
    return index;
}

TEST(QuoteDeckTest, aNewDeckIsEmptyAndTheFirstDrawBeginsARotation) {
    QuoteDeck deck;
    EXPECT_TRUE(deck.remaining.empty());
    EXPECT_TRUE(deck.last.empty());
    const auto index = indexDealt(deck, QuoteCategory::urge, inPersian, seeded(1));
    EXPECT_EQ(deck.remaining.at("urge").size(), 89U);
    EXPECT_EQ(std::ranges::count(deck.remaining.at("urge"), index), 0);
    EXPECT_EQ(deck.last.size(), 1U);
}

TEST(QuoteDeckTest, aRotationDealsEachSentenceOnceAndNeverRepeatsAcrossTheSeam) {
    for (std::uint64_t seed = 0; seed < 10'000; ++seed) {
        QuoteDeck deck;
        const auto draw = seeded(seed);
        const auto category = allCases<QuoteCategory>()[seed % 5];
        const auto count = sentences(category).size();
        std::int64_t before = -1;
        for (int rotation = 0; rotation < 3; ++rotation) {
            std::set<std::int64_t> dealt;
            for (std::size_t round = 0; round < count; ++round) {
                const auto text = deck.next(category, inPersian, draw);
                const auto index = deck.last.at(std::string{rawValue(category)});
                ASSERT_EQ(text, sentences(category)[static_cast<std::size_t>(index)]);
                ASSERT_NE(index, before) << seed;
                ASSERT_TRUE(dealt.insert(index).second) << seed;
                before = index;
            }
        }
    }
}

TEST(QuoteDeckTest, theSentenceThatEndedARotationDoesNotOpenTheNext) {
    QuoteDeck deck;
    deck.last["rest"] = 29;
    EXPECT_EQ(indexDealt(deck, QuoteCategory::rest, inPersian, highest), 0) << "first and last have changed places";
    EXPECT_EQ(deck.remaining.at("rest").front(), 29);
    QuoteDeck other;
    other.last["rest"] = 28;
    EXPECT_EQ(indexDealt(other, QuoteCategory::rest, inPersian, highest), 29) << "nothing to change";
}

TEST(QuoteDeckTest, aShuffleDrawsOncePerStepFromTheEnd) {
    std::vector<std::uint64_t> bounds;
    QuoteDeck deck;
    deck.next(QuoteCategory::exit, inPersian, [&bounds](std::uint64_t bound) {
        bounds.push_back(bound);
        return std::uint64_t{0};
    });
    ASSERT_EQ(bounds.size(), 19U);
    EXPECT_EQ(bounds.front(), 20U);
    EXPECT_EQ(bounds.back(), 2U);
    deck.next(QuoteCategory::exit, inPersian, [](std::uint64_t) -> std::uint64_t {
        ADD_FAILURE() << "a rotation is shuffled once";
        return 0;
    });
}

TEST(QuoteDeckTest, noGeneratorMakesTheSeamRepeat) {
    for (const RandomDraw& draw : {highest, RandomDraw{[](std::uint64_t) { return std::uint64_t{0}; }}}) {
        QuoteDeck deck;
        std::int64_t before = -1;
        for (int round = 0; round < 200; ++round) {
            const auto index = indexDealt(deck, QuoteCategory::urge, inPersian, draw);
            ASSERT_NE(index, before);
            before = index;
        }
    }
}

TEST(QuoteDeckTest, theSystemsRandomSourceDealsARotationToo) {
    QuoteDeck deck;
    std::set<std::string_view> dealt;
    for (int round = 0; round < 20; ++round)
        dealt.insert(deck.next(QuoteCategory::exit, inGerman));
    EXPECT_EQ(dealt.size(), 20U);
}

TEST(QuoteDeckTest, categoriesDoNotTouchEachOther) {
    QuoteDeck deck;
    const auto draw = seeded(4);
    deck.next(QuoteCategory::urge, inPersian, draw);
    const auto urge = deck.remaining.at("urge");
    deck.next(QuoteCategory::rest, inPersian, draw);
    EXPECT_EQ(deck.remaining.at("urge"), urge);
    EXPECT_EQ(deck.remaining.size(), 2U);
    EXPECT_EQ(deck.last.size(), 2U);
}

TEST(QuoteDeckTest, anotherLanguageGoesOnInTheSameRotation) {
    QuoteDeck deck;
    const auto draw = seeded(5);
    const auto first = indexDealt(deck, QuoteCategory::rest, inGerman, draw);
    const auto second = indexDealt(deck, QuoteCategory::rest, inPersian, draw);
    EXPECT_NE(first, second);
    EXPECT_EQ(deck.remaining.at("rest").size(), 28U);
}

TEST(QuoteDeckTest, ofASavedRotationOnlyPlacesThatExistAreDealt) {
    QuoteDeck deck{{{"finish", {7, 25, -1}}}, {}};
    EXPECT_EQ(indexDealt(deck, QuoteCategory::finish, inPersian, highest), 7);
    EXPECT_TRUE(deck.remaining.at("finish").empty());
}

TEST(QuoteDeckTest, aSavedRotationOfOnlyUnknownPlacesBeginsAnew) {
    QuoteDeck deck{{{"exit", {20, 21, 99}}}, {}};
    EXPECT_EQ(indexDealt(deck, QuoteCategory::exit, inPersian, highest), 19);
    EXPECT_EQ(deck.remaining.at("exit").size(), 19U);
}

TEST(QuoteDeckTest, aDeckReadsBackAndNeedsBothOfItsKeys) {
    QuoteDeck deck;
    deck.next(QuoteCategory::exit, inPersian, seeded(6));
    deck.next(QuoteCategory::finish, inPersian, seeded(7));
    EXPECT_EQ(decodeJSON<QuoteDeck>(*encodeJSON(deck)), deck);
    EXPECT_EQ(encodeJSON(QuoteDeck{}), R"({"remaining":{},"last":{}})");
    EXPECT_FALSE(decodeJSON<QuoteDeck>(R"({"remaining":{}})"));
    EXPECT_FALSE(decodeJSON<QuoteDeck>(R"({"remaining":{"urge":[1.5]},"last":{}})"));
}

} // namespace
} // namespace velmorin
