#include "app/shell/ProfileEditorModel.h"

#include "app/shell/ProfilesModel.h"
#include "tests/shell/PageTest.h"

#include <QSignalSpy>

namespace velmorin {
namespace {

constexpr const char* chrome = "com.google.Chrome";

class ProfileEditorModelTest : public PageTest {
protected:
    ProfileEditorModelTest() {
        setProfiles({Profile{"Studying", SessionMode::pomodoro}, Profile{"Code", SessionMode::deep}});
    }

    void allowApps(std::vector<AllowedApp> apps) {
        auto profiles = *data.profiles();
        profiles[0].allowedApps = std::move(apps);
        setProfiles(profiles);
    }
    void add(const QString& domain) {
        editor.setNewDomain(domain);
        editor.addDomain();
    }
    using Domains = std::vector<std::string>;

    ProfilesModel model{context};
    ProfileEditorModel& editor = *model.editor();
};

TEST_F(ProfileEditorModelTest, theNameIsWrittenWithEveryLetter) {
    editor.setName("Studyin");
    EXPECT_EQ(profile().name, "Studyin");
    EXPECT_NE(files.contents.at("/data/Velmorin/profiles.json").find("\"Studyin\""), std::string::npos);
    editor.setName("");
    EXPECT_EQ(profile().name, "");
}

TEST_F(ProfileEditorModelTest, appsAreListedInTheOrderOfChoosingAndRemovedOneByOne) {
    allowApps({{"org.example.b", "Beta"}, {"org.example.a", "Alpha"}});
    EXPECT_EQ(editor.appNames(), (QStringList{"Beta", "Alpha"}));
    EXPECT_EQ(editor.appRemovals().last(), text(strings().removeItem("Alpha")));
    editor.removeApp(0);
    EXPECT_EQ(profile().allowedApps, (std::vector<AllowedApp>{{"org.example.a", "Alpha"}}));
    editor.removeApp(1);
    editor.removeApp(-1);
    EXPECT_EQ(profile().allowedApps.size(), 1U);
}

TEST_F(ProfileEditorModelTest, warningsNameFirstWhatGetsRoundTheLockAndThenUnreadableBrowsers) {
    context.cautions.isEscapeHatch = [](std::string_view id) { return id == "org.example.terminal"; };
    context.cautions.isUnsupportedBrowser = [](std::string_view id) { return id == "org.example.browser"; };
    allowApps({{"org.example.browser", "Browser"}, {"org.example.a", "Alpha"}, {"org.example.terminal", "Terminal"}});
    EXPECT_EQ(editor.warnings(), (QStringList{text(strings().escapeHatchWarning("Terminal")),
                                              text(strings().unsupportedBrowserWarning("Browser"))}));
    allowApps({});
    EXPECT_TRUE(editor.warnings().isEmpty());
}

TEST_F(ProfileEditorModelTest, anAddressWithAPathBecomesItsDomain) {
    add(" https://www.Example.org/a/b?c#d ");
    EXPECT_EQ(profile().allowedDomains, Domains{"example.org"});
    EXPECT_EQ(editor.newDomain(), "");
    EXPECT_EQ(editor.siteRemovals(), QStringList{text(strings().removeItem("example.org"))});
}

TEST_F(ProfileEditorModelTest, aDuplicateIsSilentlyDroppedAndTheFieldEmptied) {
    add("example.org");
    add("www.example.org");
    EXPECT_EQ(profile().allowedDomains, Domains{"example.org"});
    EXPECT_EQ(editor.newDomain(), "");
    EXPECT_EQ(editor.siteProblem(), "");
}

TEST_F(ProfileEditorModelTest, whatIsNoAddressStaysInTheFieldAndIsNamed) {
    add("nonsense");
    EXPECT_EQ(editor.newDomain(), "nonsense");
    EXPECT_EQ(editor.siteProblem(), text(strings().badDomain));
    EXPECT_TRUE(profile().allowedDomains.empty());
    add("example.org");
    EXPECT_EQ(editor.siteProblem(), "");
}

TEST_F(ProfileEditorModelTest, anEmptyFieldIsNoErrorAndBlanksAre) {
    add("nonsense");
    add("");
    EXPECT_EQ(editor.siteProblem(), "");
    add("  ");
    EXPECT_EQ(editor.siteProblem(), text(strings().badDomain));
}

TEST_F(ProfileEditorModelTest, theWarningOfABrowserWithoutSitesGivesWayToABadAddress) {
    allowApps({{chrome, "Chrome"}});
    EXPECT_EQ(editor.siteProblem(), text(strings().browserWithoutSites));
    add("nonsense");
    EXPECT_EQ(editor.siteProblem(), text(strings().badDomain));
    add("");
    EXPECT_EQ(editor.siteProblem(), text(strings().browserWithoutSites));
    add("example.org");
    EXPECT_EQ(editor.siteProblem(), "");
}

TEST_F(ProfileEditorModelTest, sitesAreRemovedOneByOne) {
    add("a.org");
    add("b.org");
    editor.removeSite(0);
    EXPECT_EQ(profile().allowedDomains, Domains{"b.org"});
    EXPECT_EQ(editor.sites(), QStringList{"b.org"});
}

TEST_F(ProfileEditorModelTest, aBrowserAmongTheAppsShowsThePermissionsAndRemovingItHidesThem) {
    const QSignalSpy changed{&editor, &ProfileEditorModel::browsersChanged};
    EXPECT_FALSE(editor.hasBrowser());
    allowApps({{"com.apple.Safari", "Safari"}, {"org.example.a", "Alpha"}, {chrome, "Chrome"}});
    ASSERT_TRUE(editor.hasBrowser());
    const auto& rows = *static_cast<QList<BrowserRow*>*>(editor.allowedBrowsers().data);
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0]->checkText(), text(strings().checkPermission("Chrome")));
    EXPECT_EQ(rows[1]->checkText(), text(strings().checkPermission("Safari")));
    editor.removeApp(2);
    editor.removeApp(0);
    EXPECT_FALSE(editor.hasBrowser());
    EXPECT_EQ(changed.size(), 3);
}

TEST_F(ProfileEditorModelTest, anotherProfileStartsWithAnEmptyFieldAndNoError) {
    add("nonsense");
    model.select(1);
    EXPECT_EQ(editor.newDomain(), "");
    EXPECT_EQ(editor.siteProblem(), "");
    EXPECT_EQ(editor.name(), "Code");
}

TEST_F(ProfileEditorModelTest, aChangeOfTheSameProfileKeepsWhatIsBeingTyped) {
    editor.setNewDomain("exam");
    editor.setName("Reading");
    EXPECT_EQ(editor.newDomain(), "exam");
}

TEST_F(ProfileEditorModelTest, deletingTheProfileClosesItsSheet) {
    editor.openPicker();
    ASSERT_NE(editor.picker(), nullptr);
    model.deleteProfile();
    EXPECT_EQ(editor.picker(), nullptr);
}

TEST_F(ProfileEditorModelTest, theTextsFollowTheLanguage) {
    allowApps({{chrome, "Chrome"}});
    const QSignalSpy changed{&editor, &ProfileEditorModel::siteProblemChanged};
    speak(AppLanguage::german);
    EXPECT_GT(changed.size(), 0);
    EXPECT_EQ(editor.siteProblem(), text(AppStrings::german.browserWithoutSites));
}

} // namespace
} // namespace velmorin
