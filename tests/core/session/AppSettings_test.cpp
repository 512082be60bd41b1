#include "core/session/AppSettings.h"

#include "core/foundation/JSONCoding.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

std::optional<AppSettings> read(const char* text) {
    return decodeJSON<AppSettings>(text);
}

TEST(AppSettingsTest, anEmptyObjectIsTheDefaults) {
    EXPECT_EQ(read("{}"), AppSettings{});
}

TEST(AppSettingsTest, theDefaultsAreWrittenWithAllEightKeysInOrder) {
    EXPECT_EQ(encodeJSON(AppSettings{}),
              R"({"useFocusShortcuts":false,"focusOnShortcut":"Velmorin On","focusOffShortcut":"Velmorin Off",)"
              R"("showFloatingTimer":true,"showQuoteBackdrop":true,"language":"fa","colorTheme":"dusk",)"
              R"("lockPhoneToo":false})");
}

TEST(AppSettingsTest, aLanguageAloneLeavesTheRestAtItsDefault) {
    AppSettings german;
    german.language = AppLanguage::german;
    EXPECT_EQ(read(R"({"language":"de"})"), german);
}

TEST(AppSettingsTest, anUnknownLanguageLosesOnlyThatSetting) {
    AppSettings expected;
    expected.colorTheme = ColorTheme::aurora;
    expected.lockPhoneToo = true;
    EXPECT_EQ(read(R"({"language":"fr","colorTheme":"aurora","lockPhoneToo":true})"), expected);
}

TEST(AppSettingsTest, aThemeOfTheWrongTypeLosesOnlyThatSetting) {
    AppSettings expected;
    expected.language = AppLanguage::english;
    for (const char* theme : {"7", "null", "true", R"({"a":[1,2]})", R"(["dawn"])", R"("Dawn")", R"("")", "1e999"}) {
        const std::string text = R"({"colorTheme":)" + std::string{theme} + R"(,"language":"en"})";
        EXPECT_EQ(decodeJSON<AppSettings>(text), expected) << text;
    }
}

TEST(AppSettingsTest, aMalformedThemeIsNoJSONAtAll) {
    for (const char* theme : {"tru", "01", R"("\ud800")", "[1,]", "'dawn'", ""}) {
        const std::string text = R"({"colorTheme":)" + std::string{theme} + R"(,"language":"en"})";
        EXPECT_FALSE(decodeJSON<AppSettings>(text)) << text;
    }
}

TEST(AppSettingsTest, aBooleanOfTheWrongTypeFailsTheObject) {
    for (const char* key : {"useFocusShortcuts", "showFloatingTimer", "showQuoteBackdrop", "lockPhoneToo"}) {
        for (const char* value : {R"("yes")", "1", "[]"}) {
            EXPECT_FALSE(decodeJSON<AppSettings>("{\"" + std::string{key} + "\":" + value + "}")) << key << value;
        }
        EXPECT_EQ(decodeJSON<AppSettings>("{\"" + std::string{key} + "\":null}"), AppSettings{}) << key;
    }
}

TEST(AppSettingsTest, aShortcutOfTheWrongTypeFailsTheObjectAndNullIsTheDefault) {
    for (const char* key : {"focusOnShortcut", "focusOffShortcut"}) {
        EXPECT_FALSE(decodeJSON<AppSettings>("{\"" + std::string{key} + "\":7}")) << key;
        EXPECT_EQ(decodeJSON<AppSettings>("{\"" + std::string{key} + "\":null}"), AppSettings{}) << key;
    }
}

TEST(AppSettingsTest, anEmptyShortcutIsAValue) {
    const auto settings = read(R"({"focusOnShortcut":""})");
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->focusOnShortcut, "");
    EXPECT_EQ(settings->focusOffShortcut, "Velmorin Off");
}

TEST(AppSettingsTest, anythingButAnObjectFails) {
    for (const char* text : {"[]", "null", "true", "7", R"("fa")", ""})
        EXPECT_FALSE(read(text)) << text;
}

TEST(AppSettingsTest, everyLanguageAndThemeReadsBack) {
    for (const auto language : allCases<AppLanguage>()) {
        for (const auto theme : allCases<ColorTheme>()) {
            AppSettings settings;
            settings.language = language;
            settings.colorTheme = theme;
            EXPECT_EQ(decodeJSON<AppSettings>(*encodeJSON(settings)), settings);
        }
    }
}

TEST(AppLanguageTest, theLanguagesKnowTheirNamesLocalesAndDirection) {
    EXPECT_EQ(rawValue(AppLanguage::persian), "fa");
    EXPECT_EQ(nativeName(AppLanguage::persian), "فارسی");
    EXPECT_EQ(localeIdentifier(AppLanguage::persian), "fa_IR");
    EXPECT_TRUE(isRightToLeft(AppLanguage::persian));
    EXPECT_EQ(nativeName(AppLanguage::english), "English");
    EXPECT_EQ(localeIdentifier(AppLanguage::english), "en_GB");
    EXPECT_FALSE(isRightToLeft(AppLanguage::english));
    EXPECT_EQ(nativeName(AppLanguage::german), "Deutsch");
    EXPECT_EQ(localeIdentifier(AppLanguage::german), "de_DE");
    EXPECT_FALSE(isRightToLeft(AppLanguage::german));
}

} // namespace
} // namespace velmorin
