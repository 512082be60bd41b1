#include "core/foundation/RawValue.h"
#include "core/foundation/Text.h"
#include "core/language/QuoteCategory.h"
#include "tests/support/TextRules.h"

#include <gmock/gmock.h>
#include <map>
#include <set>

namespace velmorin {
namespace {

TEST(QuotesTest, eachMomentHasAsManySentencesInEveryLanguage) {
    const std::map<QuoteCategory, std::size_t> counts{{QuoteCategory::urge, 90},
                                                      {QuoteCategory::returning, 40},
                                                      {QuoteCategory::rest, 30},
                                                      {QuoteCategory::exit, 20},
                                                      {QuoteCategory::finish, 20}};
    for (const auto& [category, count] : counts) {
        for (const auto language : allCases<AppLanguage>())
            EXPECT_EQ(sentences(category, language).size(), count);
    }
}

TEST(QuotesTest, noListSaysASentenceTwiceAndNoneIsLongOrBreaksARule) {
    for (const auto category : allCases<QuoteCategory>()) {
        for (const auto language : allCases<AppLanguage>()) {
            std::set<std::string_view> seen;
            for (const auto sentence : sentences(category, language)) {
                EXPECT_TRUE(seen.insert(sentence).second) << sentence;
                EXPECT_GE(characterCount(sentence), 10) << sentence;
                EXPECT_LE(characterCount(sentence), 86) << sentence;
                EXPECT_EQ(trimmed(sentence), sentence);
                EXPECT_THAT(brokenRules(language, sentence), testing::IsEmpty()) << sentence;
            }
        }
    }
}

TEST(QuotesTest, theListsAreParallel) {
    const auto expectRow = [](QuoteCategory category, std::size_t index, std::string_view english,
                              std::string_view german, std::string_view persian) {
        EXPECT_EQ(sentences(category, AppLanguage::english)[index], english);
        EXPECT_EQ(sentences(category, AppLanguage::german)[index], german);
        EXPECT_EQ(sentences(category, AppLanguage::persian)[index], persian);
    };
    expectRow(QuoteCategory::urge, 1, "Every wave of temptation rises, then settles.",
              "Jede Welle der Versuchung steigt an und legt sich wieder.",
              "هر موج وسوسه بالا می‌آید و بعد آرام می‌شود.");
    expectRow(QuoteCategory::urge, 9, "This is a whim, not an order.", "Das ist eine Laune, kein Befehl.",
              "این یک هوس است، نه یک دستور.");
    expectRow(QuoteCategory::returning, 5, "One breath, and begin.", "Ein Atemzug, und los.", "یک نفس، و شروع.");
    expectRow(QuoteCategory::rest, 3, "Roll your shoulders a few times.", "Kreise ein paarmal die Schultern.",
              "شانه‌هایت را چند بار بچرخان.");
    expectRow(QuoteCategory::exit, 2, "Ask yourself: can't this wait until the session ends?",
              "Frag dich: Kann das nicht bis zum Ende der Sitzung warten?",
              "از خودت بپرس: این کار تا پایان جلسه نمی‌تواند صبر کند؟");
    expectRow(QuoteCategory::finish, 11, "Give yourself a small reward; you've earned it.",
              "Gönn dir eine kleine Belohnung; du hast sie verdient.", "به خودت یک پاداش کوچک بده؛ حقت است.");
}

TEST(TextRulesTest, eachRuleCanBeBroken) {
    using testing::IsEmpty;
    using testing::Not;
    for (const char* bad : {"وای!", "می\u200C\u200Cآید", "\u200Cآید", "می\u200C آید", "علي", "كار", "۱2", "چه?",
                            "بله, نه", "تـمام", "«\"»", "دو  فاصله", "..."}) {
        EXPECT_THAT(brokenRules(AppLanguage::persian, bad), Not(IsEmpty())) << bad;
    }
    EXPECT_THAT(brokenRules(AppLanguage::persian, "می‌آید و می‌رود؛ «همین».."), IsEmpty());
    EXPECT_THAT(brokenRules(AppLanguage::german, "Er sagt ”so“"), Not(IsEmpty()));
    EXPECT_THAT(brokenRules(AppLanguage::german, "Schluss!"), Not(IsEmpty()));
    EXPECT_THAT(brokenRules(AppLanguage::english, "„so“"), Not(IsEmpty()));
    EXPECT_THAT(brokenRules(AppLanguage::english, "It’s “so”; don't"), IsEmpty());
}

} // namespace
} // namespace velmorin
