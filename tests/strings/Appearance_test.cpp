#include "app/strings/Appearance.h"

#include "app/strings/LinuxStrings.h"

#include <gmock/gmock.h>
#include <vector>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AppearanceTest : public ::testing::Test {
protected:
    static AppSettings settings(AppLanguage language, ColorTheme theme) {
        AppSettings made;
        made.language = language;
        made.colorTheme = theme;
        return made;
    }

    Appearance appearance;
    std::vector<AppLanguage> languages;
    std::vector<ColorTheme> themes;
    Cancellable languageWatch = appearance.language().watch([this] { languages.push_back(*appearance.language()); });
    Cancellable themeWatch = appearance.theme().watch([this] { themes.push_back(*appearance.theme()); });
};

TEST_F(AppearanceTest, startsInPersianAndDusk) {
    EXPECT_EQ(*appearance.language(), AppLanguage::persian);
    EXPECT_EQ(*appearance.theme(), ColorTheme::dusk);
    EXPECT_EQ(&appearance.strings(), &AppStrings::persian);
}

TEST_F(AppearanceTest, givesTheTextsOfTheSystemItWasTold) {
    appearance.setTexts(&LinuxStrings::of);
    EXPECT_EQ(&appearance.strings(), &LinuxStrings::of(AppLanguage::persian));
    appearance.apply(settings(AppLanguage::german, ColorTheme::dusk));
    EXPECT_EQ(&appearance.strings(), &LinuxStrings::of(AppLanguage::german));
}

TEST_F(AppearanceTest, defaultSettingsWakeNobody) {
    appearance.apply(AppSettings{});
    EXPECT_THAT(languages, IsEmpty());
    EXPECT_THAT(themes, IsEmpty());
}

TEST_F(AppearanceTest, anotherLanguageWakesThoseOfTheLanguageOnly) {
    appearance.apply(settings(AppLanguage::german, ColorTheme::dusk));
    EXPECT_THAT(languages, ElementsAre(AppLanguage::german));
    EXPECT_THAT(themes, IsEmpty());
}

TEST_F(AppearanceTest, anotherThemeWakesThoseOfTheThemeOnly) {
    appearance.apply(settings(AppLanguage::persian, ColorTheme::aurora));
    EXPECT_THAT(languages, IsEmpty());
    EXPECT_THAT(themes, ElementsAre(ColorTheme::aurora));
}

TEST_F(AppearanceTest, theSameSettingsAgainWakeNobody) {
    appearance.apply(settings(AppLanguage::english, ColorTheme::dawn));
    appearance.apply(settings(AppLanguage::english, ColorTheme::dawn));
    EXPECT_THAT(languages, ElementsAre(AppLanguage::english));
    EXPECT_THAT(themes, ElementsAre(ColorTheme::dawn));
}

TEST_F(AppearanceTest, otherSettingsThanTheseTwoWakeNobody) {
    AppSettings other;
    other.useFocusShortcuts = true;
    other.focusOnShortcut = "other";
    other.showFloatingTimer = false;
    other.lockPhoneToo = true;
    appearance.apply(other);
    EXPECT_THAT(languages, IsEmpty());
    EXPECT_THAT(themes, IsEmpty());
}

TEST_F(AppearanceTest, theTextsFollowTheLanguage) {
    appearance.apply(settings(AppLanguage::english, ColorTheme::dusk));
    EXPECT_EQ(&appearance.strings(), &AppStrings::english);
    appearance.apply(settings(AppLanguage::german, ColorTheme::dusk));
    EXPECT_EQ(&appearance.strings(), &AppStrings::german);
    appearance.apply(settings(AppLanguage::persian, ColorTheme::dusk));
    EXPECT_EQ(&appearance.strings(), &AppStrings::persian);
}

TEST_F(AppearanceTest, whoWatchesTheLanguageFindsItsTextsAlready) {
    const AppStrings* found = nullptr;
    const auto watch = appearance.language().watch([&] { found = &appearance.strings(); });
    appearance.apply(settings(AppLanguage::german, ColorTheme::dusk));
    EXPECT_EQ(found, &AppStrings::german);
}

TEST_F(AppearanceTest, aSystemMayBringTextsOfItsOwn) {
    Appearance own{[](AppLanguage language) -> const AppStrings& {
        return language == AppLanguage::persian ? AppStrings::german : AppStrings::english;
    }};
    EXPECT_EQ(&own.strings(), &AppStrings::german);
    own.apply(settings(AppLanguage::german, ColorTheme::dusk));
    EXPECT_EQ(&own.strings(), &AppStrings::english);
}

TEST_F(AppearanceTest, thereIsOneForAllScreens) {
    EXPECT_EQ(&Appearance::shared(), &Appearance::shared());
    EXPECT_EQ(*Appearance::shared().language(), AppLanguage::persian);
}

TEST(AppStringsOfALanguageTest, eachLanguageHasTextsOfItsOwn) {
    EXPECT_EQ(&AppStrings::of(AppLanguage::persian), &AppStrings::persian);
    EXPECT_EQ(&AppStrings::of(AppLanguage::english), &AppStrings::english);
    EXPECT_EQ(&AppStrings::of(AppLanguage::german), &AppStrings::german);
}

} // namespace
} // namespace velmorin
