#include "app/shell/BrowserRow.h"

#include "app/shell/ProfilesModel.h"
#include "app/strings/PlatformStrings.h"
#include "tests/shell/PageTest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <memory>

namespace velmorin {
namespace {

constexpr const char* chromeID = "com.google.Chrome";

class BrowserRowTest : public PageTest {
protected:
    static void SetUpTestSuite() {
        static int count = 1;
        static char name[] = "page-tests";
        static char* arguments[] = {name, nullptr};
        qputenv("QT_QPA_PLATFORM", "offscreen");
        s_application = std::make_unique<QGuiApplication>(count, arguments);
    }
    static void TearDownTestSuite() { s_application.reset(); }

    BrowserRowTest() {
        Profile first{"Studying", SessionMode::pomodoro};
        first.allowedApps = {{chromeID, "Chrome"}};
        setProfiles({first, Profile{"Code", SessionMode::deep}});
        desktop.workspace.add({.pid = 7, .bundleID = chromeID, .name = "Chrome"});
    }

    BrowserRow& row() { return *static_cast<QList<BrowserRow*>*>(model.editor()->allowedBrowsers().data)->first(); }
    void answer(SimulatedBrowsers::Says says, double delay = 1) {
        desktop.browsers.behave(BrowserKind::chrome, {std::move(says), delay});
    }
    static QString clipboard() { return QGuiApplication::clipboard()->text(); }

    inline static std::unique_ptr<QGuiApplication> s_application;
    ProfilesModel model{context};
};

TEST_F(BrowserRowTest, nothingIsSaidBeforeTheFirstCheck) {
    EXPECT_EQ(row().message(), "");
    EXPECT_EQ(row().checkText(), text(strings().checkPermission("Chrome")));
}

TEST_F(BrowserRowTest, aCheckSaysThatItGoesOnAndThenWhatTheBrowserAnswered) {
    answer(SimulatedBrowsers::Tabs{});
    row().check();
    EXPECT_EQ(row().message(), text(strings().permissionChecking));
    desktop.time.advance(1);
    EXPECT_EQ(row().message(), text(strings().permissionGranted));
}

TEST_F(BrowserRowTest, aRefusalAndSilenceAreToldApart) {
    answer(SimulatedBrowsers::Denied{});
    row().check();
    desktop.time.advance(1);
    EXPECT_EQ(row().message(), text(strings().permissionDenied));
    answer(SimulatedBrowsers::NoAnswer{});
    row().check();
    desktop.time.advance(BrowserMonitor::firstTimeout + 1);
    EXPECT_EQ(row().message(), text(strings().permissionNoAnswer));
}

TEST_F(BrowserRowTest, aSecondPressStartsASecondCheck) {
    answer(SimulatedBrowsers::Denied{}, 5);
    row().check();
    desktop.time.advance(1);
    answer(SimulatedBrowsers::Tabs{}, 5);
    row().check();
    desktop.time.advance(4);
    EXPECT_EQ(row().message(), text(strings().permissionDenied));
    desktop.time.advance(1);
    EXPECT_EQ(row().message(), text(strings().permissionGranted));
}

TEST_F(BrowserRowTest, aMessageStaysUntilTheNextCheck) {
    answer(SimulatedBrowsers::Tabs{});
    row().check();
    desktop.time.advance(1000);
    model.editor()->setName("Reading");
    EXPECT_EQ(row().message(), text(strings().permissionGranted));
    row().check();
    EXPECT_EQ(row().message(), text(strings().permissionChecking));
}

TEST_F(BrowserRowTest, anotherProfileForgetsTheMessageAndWhatACheckStillBrings) {
    answer(SimulatedBrowsers::Denied{});
    row().check();
    desktop.time.advance(1);
    answer(SimulatedBrowsers::Tabs{}, 5);
    row().check();
    row().setUp();
    model.select(1);
    model.select(0);
    EXPECT_EQ(row().message(), "");
    EXPECT_TRUE(row().steps().isEmpty());
    desktop.time.advance(10);
    EXPECT_EQ(row().message(), "");
}

TEST_F(BrowserRowTest, theMessageFollowsTheLanguage) {
    answer(SimulatedBrowsers::Tabs{});
    row().check();
    desktop.time.advance(1);
    speak(AppLanguage::german);
    EXPECT_EQ(row().message(), text(AppStrings::german.permissionGranted));
}

TEST_F(BrowserRowTest, settingUpTellsTheBrowserOfTheProgramOpensItAndSaysWhatIsLeftToDo) {
    desktop.workspace.installed.insert(chromeID);
    EXPECT_EQ(row().setUpText(), text(PlatformStrings::english.setUpBrowser("Chrome")));
    EXPECT_TRUE(row().steps().isEmpty());
    row().setUp();
    EXPECT_EQ(setup.introduced, std::vector{BrowserKind::chrome});
    EXPECT_EQ(clipboard(), "chrome://extensions");
    ASSERT_EQ(row().steps().size(), 5);
    EXPECT_EQ(row().steps().first(), "1. " + text(PlatformStrings::english.openPage("chrome://extensions")));
    desktop.time.advance(1);
    ASSERT_NE(desktop.workspace.frontmostApplication(), nullptr);
    EXPECT_EQ(desktop.workspace.frontmostApplication()->bundleIdentifier(), chromeID);
    row().copyFolder();
    EXPECT_EQ(clipboard(), "/usr/share/extension");
    row().copyAddress();
    EXPECT_EQ(clipboard(), "chrome://extensions");
}

TEST_F(BrowserRowTest, theStepsAreNumberedInTheDigitsOfTheLanguage) {
    row().setUp();
    speak(AppLanguage::persian);
    EXPECT_TRUE(row().steps().at(1).startsWith("۲. "));
}

TEST_F(BrowserRowTest, aBrowserThatCannotBeToldOfTheProgramGetsNoSteps) {
    setup.succeeds = false;
    QGuiApplication::clipboard()->setText("mine");
    row().setUp();
    EXPECT_EQ(row().steps(), QStringList{text(PlatformStrings::english.notIntroduced)});
    EXPECT_EQ(clipboard(), "mine");
}

TEST_F(BrowserRowTest, whereNothingHasToBeAddedNothingIsOffered) {
    context.browserSetup = nullptr;
    EXPECT_EQ(row().setUpText(), "");
    row().setUp();
    row().copyAddress();
    row().copyFolder();
    EXPECT_TRUE(row().steps().isEmpty());
}

} // namespace
} // namespace velmorin
