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
    expectRow(QuoteCategory::urge, 0, "This urge comes and goes; you don't have to follow it.",
              "Dieser Drang kommt und geht; du musst ihm nicht folgen.",
              "این میل می‌آید و می‌رود؛ لازم نیست دنبالش بروی.");
    expectRow(QuoteCategory::urge, 7, "Write the thought down; it won't get lost.",
              "Schreib den Gedanken auf; er geht nicht verloren.", "فکرت را بنویس؛ گم نمی‌شود.");
    expectRow(QuoteCategory::returning, 0, "Welcome back. Carry on from where you left off.",
              "Schön, dass du zurück bist. Mach dort weiter, wo du warst.",
              "خوش برگشتی. از همان‌جا که مانده بودی ادامه بده.");
    expectRow(QuoteCategory::returning, 11, "One more round. As simple as that.",
              "Noch eine Runde, so einfach ist das.", "یک دور دیگر، به همین سادگی.");
    expectRow(QuoteCategory::rest, 0, "Get up and walk around a little.", "Steh auf und geh ein paar Schritte.",
              "از جایت بلند شو و کمی راه برو.");
    expectRow(QuoteCategory::exit, 0, "If you really need to go, that's okay. Just be sure.",
              "Wenn es wirklich sein muss, ist Gehen in Ordnung. Sei dir nur sicher.",
              "اگر واقعاً لازم است، رفتن اشکالی ندارد. فقط مطمئن شو.");
    expectRow(QuoteCategory::finish, 0, "It's done. You gave this time to yourself as a gift.",
              "Geschafft. Diese Zeit hast du dir selbst geschenkt.", "تمام شد. این زمان را به خودت هدیه دادی.");
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
