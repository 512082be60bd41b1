#include "app/strings/AppStrings.h"

#include "app/strings/AppStringsFields.h"
#include "core/foundation/RawValue.h"
#include "core/language/AppLanguage.h"
#include "tests/support/TextRules.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <map>

namespace velmorin {
namespace {

const AppStrings& persian = AppStrings::persian;
const AppStrings& english = AppStrings::english;
const AppStrings& german = AppStrings::german;

const std::map<AppLanguage, const AppStrings*> instances{
    {AppLanguage::persian, &persian}, {AppLanguage::english, &english}, {AppLanguage::german, &german}};

TEST(AppStringsTest, allFieldsOfAllLanguagesAreFilled) {
    EXPECT_EQ(AppStringsFields::texts.size(), 160U);
    EXPECT_EQ(AppStringsFields::functions.size(), 21U);
    for (const auto& instance : instances) {
        const AppStrings* const strings = instance.second;
        for (const auto& field : AppStringsFields::texts) {
            EXPECT_FALSE((strings->*field.member).empty()) << rawValue(instance.first) << " " << field.name;
        }
        for (const auto& field : AppStringsFields::functions) {
            std::visit([&](auto member) { EXPECT_NE(strings->*member, nullptr) << field.name; }, field.member);
        }
    }
}

TEST(AppStringsTest, onlyTheNameIsTheSameInAllLanguages) {
    for (const auto& field : AppStringsFields::texts) {
        const auto text = english.*field.member;
        const bool isSame = text == german.*field.member && text == persian.*field.member;
        EXPECT_EQ(isSame, field.name == "appName") << field.name;
    }
    EXPECT_EQ(english.appName, "Dravoni");
}

TEST(AppStringsTest, noTextBreaksTheRulesOfItsLanguage) {
    for (const auto& [language, strings] : instances) {
        for (const auto& field : AppStringsFields::texts) {
            const auto text = strings->*field.member;
            EXPECT_THAT(brokenRules(language, text), testing::IsEmpty()) << field.name << ": " << text;
        }
    }
}

TEST(AppStringsTest, fieldsWithOneEnglishTextStayApart) {
    EXPECT_EQ(english.cancel, english.phoneCancelPairing);
    EXPECT_EQ(english.timesReturned, english.timesReturnedToWork);
    EXPECT_EQ(english.endSession, english.floatingEndSession);
    EXPECT_EQ(english.sessionsWord, english.sessionsHeading);
    EXPECT_NE(persian.sessionsWord, persian.sessionsHeading);
}

TEST(AppStringsTest, theTextsThatDifferInMoreThanWordsDo) {
    EXPECT_EQ(german.phoneNeedsSetup,
              "Das Handy wurde nicht gesperrt: Aktiviere in seiner Dravoni-App unter „Mehr“ die "
              "Bedienungshilfen.");
    EXPECT_EQ(german.writeThought, "Gedanke");
    EXPECT_EQ(persian.writeThought, "نوشتن فکر");
    EXPECT_EQ(persian.periodWeek, "۷ روز");
    EXPECT_EQ(persian.listSeparator, "، ");
    EXPECT_EQ(persian.doNotDisturbHeading, "حالت Do Not Disturb");
    EXPECT_NE(persian.shortcutStart.find("Shortcut"), std::string_view::npos);
    EXPECT_NE(persian.permissionDenied.find("System Settings › Privacy › Automation"), std::string_view::npos);
    EXPECT_EQ(german.shortcutStart.find("Shortcut"), std::string_view::npos);
}

TEST(AppStringsTest, theTellingTextsAreAsTheyWereGiven) {
    EXPECT_EQ(german.tabStart, "Start");
    EXPECT_EQ(persian.tabStart, "شروع");
    EXPECT_EQ(german.modeDeep, "Tiefe Sperre");
    EXPECT_EQ(persian.modeDeep, "قفل عمیق");
    EXPECT_EQ(german.restWord, "Pause");
    EXPECT_EQ(persian.restWord, "استراحت");
    EXPECT_EQ(german.doNotDisturbHeading, "Nicht stören");
    EXPECT_EQ(german.phoneLocking, "Handy: wird gesperrt…");
    EXPECT_EQ(persian.phoneLocking, "گوشی: در حال قفل شدن…");
    EXPECT_EQ(german.phoneNoAnswer, "Handy: keine Antwort");
    EXPECT_EQ(persian.phoneNoAnswer, "گوشی: پاسخی نیامد");
    EXPECT_EQ(persian.phoneNeedsSetup,
              "گوشی قفل نشد: در اپ Dravoni روی گوشی، از تنظیمات مجوز Accessibility را روشن کن.");
    EXPECT_EQ(german.periodWeek, "7 Tage");
    EXPECT_EQ(persian.periodMonth, "۳۰ روز");
    EXPECT_EQ(german.badDomain, "Diese Adresse ist nicht gültig. Schreib sie wie example.org.");
    EXPECT_EQ(persian.badDomain, "این آدرس درست نیست. مثل example.org بنویس.");
    EXPECT_EQ(german.reasonTooShort, "Schreib deinen Grund etwas ausführlicher, um zu beenden");
    EXPECT_EQ(persian.reasonTooShort,
              "برای پایان جلسه، دلیلت را کمی کامل‌تر بنویس");
    EXPECT_EQ(german.menuQuitApp, "Dravoni beenden");
    EXPECT_EQ(persian.menuQuitApp, "خروج از Dravoni");
    EXPECT_NE(persian.shortcutEnd.find("Shortcut"), std::string_view::npos);
}

TEST(AppStringsTest, onlyEnglishAndGermanHaveAWordForOne) {
    EXPECT_EQ(english.appCount(1), "1 app");
    EXPECT_EQ(english.appCount(0), "0 apps");
    EXPECT_EQ(german.appCount(1), "1 App");
    EXPECT_EQ(german.appCount(2), "2 Apps");
    EXPECT_EQ(persian.appCount(1), "۱ اپ");
    EXPECT_EQ(persian.appCount(12), "۱۲ اپ");
    EXPECT_EQ(german.roundsAmount(1), "1 volle Runde");
    EXPECT_EQ(english.roundsAmount(2), "2 full rounds");
    EXPECT_EQ(persian.roundsAmount(2), "۲ دور کامل");
    EXPECT_EQ(english.returnsAmount(1), "1 return");
    EXPECT_EQ(german.returnsAmount(1), "1-mal zurück");
    EXPECT_EQ(persian.returnsAmount(3), "۳ برگشت");
}

TEST(AppStringsTest, appsAndSitesAreCountedApart) {
    EXPECT_EQ(english.appAndSiteCount(1, 2), "1 app and 2 sites");
    EXPECT_EQ(english.appAndSiteCount(2, 1), "2 apps and 1 site");
    EXPECT_EQ(german.appAndSiteCount(1, 1), "1 App und 1 Website");
    EXPECT_EQ(german.appAndSiteCount(0, 2), "0 Apps und 2 Websites");
    EXPECT_EQ(persian.appAndSiteCount(1, 2), "۱ اپ و ۲ سایت");
}

TEST(AppStringsTest, returnsAreToldInASentence) {
    EXPECT_EQ(english.returnedSoFar(1), "You've come back to work once so far.");
    EXPECT_EQ(english.returnedSoFar(3), "You've come back to work 3 times so far.");
    EXPECT_EQ(german.returnedSoFar(1), "Bisher 1-mal zur Arbeit zurückgekehrt.");
    EXPECT_EQ(persian.returnedSoFar(3), "تا اینجا ۳ بار برگشتی سر کار.");
}

TEST(AppStringsTest, theClockIsNamedInGermanAndPersianOnly) {
    EXPECT_EQ(english.clockAt("09:05"), "09:05");
    EXPECT_EQ(german.clockAt("09:05"), "09:05 Uhr");
    EXPECT_EQ(persian.clockAt("۰۹:۰۵"), "ساعت ۰۹:۰۵");
}

TEST(AppStringsTest, aProjectsNameStaysAsItIs) {
    const char* name = "Work %1 {n} 12 «x»";
    for (const auto& [language, strings] : instances) {
        EXPECT_THAT(strings->projectHelp(name, "1 hr", 12), testing::StartsWith(std::string{name} + ": 1 hr"));
    }
    EXPECT_EQ(english.projectHelp("A", "1 hr", 1), "A: 1 hr, 1 session");
    EXPECT_EQ(german.projectHelp("A", "1 Std.", 2), "A: 1 Std., 2 Sitzungen");
    EXPECT_EQ(persian.projectHelp("A", "۱ ساعت", 12), "A: ۱ ساعت، ۱۲ جلسه");
}

TEST(AppStringsTest, whereTheArgumentStandsIsTheLanguagesOwn) {
    EXPECT_EQ(english.removeItem("X"), "Remove X");
    EXPECT_EQ(german.removeItem("X"), "X entfernen");
    EXPECT_EQ(persian.removeItem("X"), "حذف X");
    EXPECT_EQ(english.checkPermission("Chrome"), "Check Chrome permission");
    EXPECT_EQ(german.checkPermission("Chrome"), "Chrome-Erlaubnis prüfen");
    EXPECT_EQ(persian.checkPermission("Chrome"), "بررسی مجوز Chrome");
}

TEST(AppStringsTest, quotationMarksAreTheLanguagesOwn) {
    EXPECT_EQ(english.canWait("X"), "“X” can wait for now.");
    EXPECT_EQ(german.canWait("X"), "„X“ kann jetzt warten.");
    EXPECT_EQ(persian.canWait("X"), "فعلاً «X» می‌تواند صبر کند.");
    EXPECT_EQ(english.escapeHatchWarning("X"), "“X” can be used to get around the lock.");
    EXPECT_EQ(german.escapeHatchWarning("X"), "Mit „X“ lässt sich die Sperre umgehen.");
    EXPECT_EQ(persian.escapeHatchWarning("X"), "با «X» می‌شود قفل را دور زد.");
    EXPECT_EQ(english.unsupportedBrowserWarning("X"),
              "Sites in “X” aren't controlled; only Chrome and Safari are supported.");
    EXPECT_EQ(german.unsupportedBrowserWarning("X"),
              "Websites in „X“ werden nicht kontrolliert; nur Chrome und Safari werden unterstützt.");
    EXPECT_EQ(persian.unsupportedBrowserWarning("X"),
              "سایت‌های «X» کنترل نمی‌شوند، فقط Chrome و Safari پشتیبانی "
              "می‌شوند.");
}

TEST(AppStringsTest, lengthsOfTimeAndReasonsArePutInAsTheyAre) {
    EXPECT_EQ(english.segmentAndTotal("a", "b"), "This part: a, whole session: b");
    EXPECT_EQ(german.segmentAndTotal("a", "b"), "Dieser Teil: a, ganze Sitzung: b");
    EXPECT_EQ(persian.segmentAndTotal("a", "b"), "این بخش: a، کل جلسه: b");
    EXPECT_EQ(english.focusedAmount("s"), "s of focus");
    EXPECT_EQ(german.focusedAmount("s"), "s Fokus");
    EXPECT_EQ(persian.focusedAmount("s"), "s تمرکز");
    EXPECT_EQ(english.endedEarly("s"), "Ended early: s");
    EXPECT_EQ(german.endedEarly("s"), "Früher beendet: s");
    EXPECT_EQ(persian.endedEarly("s"), "زودتر تمام شد: s");
    EXPECT_EQ(english.dayTotal("s"), "Total: s");
    EXPECT_EQ(german.dayTotal("s"), "Summe: s");
    EXPECT_EQ(persian.dayTotal("s"), "جمع: s");
    EXPECT_EQ(english.timeLeft("s"), "s left");
    EXPECT_EQ(german.timeLeft("s"), "noch s");
    EXPECT_EQ(persian.timeLeft("s"), "s مانده");
    EXPECT_EQ(english.breakLeft("s"), "Break: s");
    EXPECT_EQ(german.breakLeft("s"), "Pause: s");
    EXPECT_EQ(persian.breakLeft("s"), "استراحت: s");
    EXPECT_EQ(english.endAvailableIn("s"), "End session becomes available in s");
    EXPECT_EQ(german.endAvailableIn("s"), "Beenden ist in s möglich");
    EXPECT_EQ(persian.endAvailableIn("s"), "پایان جلسه تا s دیگر فعال می‌شود");
    EXPECT_EQ(english.restLeft("s"), "s of rest");
    EXPECT_EQ(german.restLeft("s"), "s Pause");
    EXPECT_EQ(persian.restLeft("s"), "s استراحت داری");
    EXPECT_EQ(english.noAutomation("s"), "s (no Automation permission)");
    EXPECT_EQ(german.noAutomation("s"), "s (ohne Automation-Erlaubnis)");
    EXPECT_EQ(persian.noAutomation("s"), "s (بدون مجوز Automation)");
}

} // namespace
} // namespace velmorin
