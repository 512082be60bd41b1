#include "tests/engine/AppDataTest.h"

#include <set>

namespace velmorin {
namespace {

using ::testing::ElementsAre;

class AppDataQuotesTest : public AppDataTest {
protected:
    /// The index of the sentence that was dealt last.
    std::size_t lastIndex(std::string_view moment) {
        return static_cast<std::size_t>(data().quoteDeck().last.at(std::string{moment}));
    }
};

TEST_F(AppDataQuotesTest, aQuoteIsInTheLanguageOfTheScreens) {
    for (const auto language : {AppLanguage::persian, AppLanguage::english, AppLanguage::german}) {
        AppSettings settings;
        settings.language = language;
        data().setSettings(settings);
        const auto quote = data().nextQuote(QuoteCategory::urge);
        EXPECT_EQ(quote, sentences(QuoteCategory::urge, language)[lastIndex("urge")]);
    }
}

TEST_F(AppDataQuotesTest, eachDrawSavesTheDeckOnce) {
    (void)data().nextQuote(QuoteCategory::urge);
    EXPECT_THAT(eventNames(), ElementsAre("save"));
    EXPECT_EQ(saves(AppData::quoteDeckFile), 1U);
    EXPECT_EQ(stored<QuoteDeck>(AppData::quoteDeckFile), data().quoteDeck());
    (void)data().nextQuote(QuoteCategory::rest);
    EXPECT_EQ(saves(AppData::quoteDeckFile), 2U);
    EXPECT_EQ(stored<QuoteDeck>(AppData::quoteDeckFile), data().quoteDeck());
}

TEST_F(AppDataQuotesTest, theRotationOutlivesTheProcessAndAChangeOfLanguage) {
    const auto count = sentences(QuoteCategory::urge).size();
    std::set<std::size_t> dealt;
    for (std::size_t draw = 0; draw < count; ++draw) {
        if (draw == count / 2) {
            load();
            AppSettings german;
            german.language = AppLanguage::german;
            data().setSettings(german);
        }
        (void)data().nextQuote(QuoteCategory::urge);
        dealt.insert(lastIndex("urge"));
    }
    EXPECT_EQ(dealt.size(), count);
}

TEST_F(AppDataQuotesTest, aQuoteIsDealtAlsoOnAFullDisk) {
    desktop().disk.isFull = true;
    const auto quote = data().nextQuote(QuoteCategory::urge);
    EXPECT_EQ(quote, sentences(QuoteCategory::urge)[lastIndex("urge")]);
    EXPECT_FALSE(file(AppData::quoteDeckFile));
}

} // namespace
} // namespace velmorin
