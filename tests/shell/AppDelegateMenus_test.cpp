#include "app/shell/SessionModel.h"
#include "tests/shell/AppDelegateTest.h"

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::Field;

class AppDelegateMenusTest : public AppDelegateTest {
protected:
    using Words = std::string_view;
};

TEST_F(AppDelegateMenusTest, theMainMenuHasThreeMenusWithTheUsualKeys) {
    launchProgram();
    const auto& texts = AppStrings::persian;
    const auto item = [](std::string_view text, MenuAction action, char key) {
        return MenuItem{std::string{text}, action, key};
    };
    EXPECT_EQ(shell.mainMenu,
              (MainMenu{
                  {"", {item(texts.menuQuitApp, MenuAction::terminate, 'q')}},
                  {std::string{texts.menuEdit},
                   {item(texts.menuUndo, MenuAction::undo, 'z'), item(texts.menuCut, MenuAction::cut, 'x'),
                    item(texts.menuCopy, MenuAction::copy, 'c'), item(texts.menuPaste, MenuAction::paste, 'v'),
                    item(texts.menuSelectAll, MenuAction::selectAll, 'a')}},
                  {std::string{texts.menuWindow}, {item(texts.menuClose, MenuAction::performClose, 'w')}},
              }));
}

TEST_F(AppDelegateMenusTest, outsideASessionTheStatusMenuOffersToQuit) {
    launchProgram();
    EXPECT_THAT(statusMenu(), ElementsAre(texts().menuOpen, texts().menuWriteThought, Words{"—"}, texts().menuQuit));
}

TEST_F(AppDelegateMenusTest, duringASessionItOffersNothingButTheWayThroughTheExit) {
    launchProgram();
    startSession();
    EXPECT_THAT(statusMenu(), ElementsAre(texts().menuOpen, texts().menuWriteThought, Words{"—"}, texts().menuHideTimer,
                                          texts().menuEndSession));
}

TEST_F(AppDelegateMenusTest, whatTheProgramLacksHasNoRow) {
    shell.hasQuickThought = false;
    shell.hasFloatingTimer = false;
    launchProgram();
    EXPECT_THAT(statusMenu(), ElementsAre(texts().menuOpen, Words{"—"}, texts().menuQuit));
    startSession();
    EXPECT_THAT(statusMenu(), ElementsAre(texts().menuOpen, Words{"—"}, texts().menuEndSession));
}

TEST_F(AppDelegateMenusTest, aMenuIsMadeAnewAtEachOpening) {
    launchProgram();
    Menu menu;
    shell.item.calls.menuNeedsUpdate(menu);
    const auto before = menu;
    shell.item.calls.menuNeedsUpdate(menu);
    EXPECT_EQ(menu, before) << "nothing is left of what it held";
    changeSettings([](AppSettings& settings) { settings.language = AppLanguage::german; });
    shell.item.calls.menuNeedsUpdate(menu);
    EXPECT_EQ(menu.items.front().text, AppStrings::german.menuOpen);
}

TEST_F(AppDelegateMenusTest, thePhoneHasARowDuringASessionOnly) {
    leavePairing();
    AppSettings settings;
    settings.lockPhoneToo = true;
    leaveSettings(settings);
    launchProgram();
    startSession();
    const auto id = (*controller().session())->id;
    const auto row = [this] { return statusMenu()[3]; };
    EXPECT_EQ(row(), "(" + std::string{texts().phoneLocking} + ")");
    hearPhone("locked", id);
    EXPECT_EQ(row(), "(" + std::string{texts().phoneLockedNow} + ")");
    hearPhone("notReady", id);
    EXPECT_EQ(row(), "(" + std::string{texts().phoneNeedsSetup} + ")");
    hearPhone("released", id);
    EXPECT_EQ(row(), "(" + std::string{texts().phoneReleased} + ")");
    controller().exitWaitOverride = 0;
    controller().beginEmergencyExit();
    controller().confirmEmergencyExit(reason);
    settle();
    ASSERT_FALSE(controller().isActive());
    EXPECT_THAT(statusMenu(), ElementsAre(texts().menuOpen, texts().menuWriteThought, Words{"—"}, texts().menuQuit));
}

TEST_F(AppDelegateMenusTest, aDesktopThatKeepsTheMenuIsToldWhenARowChanges) {
    leavePairing();
    AppSettings settings;
    settings.lockPhoneToo = true;
    leaveSettings(settings);
    launchProgram();
    startSession();
    const auto id = (*controller().session())->id;
    const auto row = [this] { return shell.item.menu.items.at(3).text; };
    EXPECT_EQ(row(), texts().phoneLocking);
    hearPhone("locked", id);
    EXPECT_EQ(row(), texts().phoneLockedNow);
    hearPhone("released", id);
    EXPECT_EQ(row(), texts().phoneReleased);
}

TEST_F(AppDelegateMenusTest, aPhoneThatDoesNotAnswerIsToldOf) {
    leavePairing();
    AppSettings settings;
    settings.lockPhoneToo = true;
    leaveSettings(settings);
    launchProgram();
    startSession(SessionMode::deep);
    advance(120);
    EXPECT_EQ(statusMenu()[3], "(" + std::string{texts().phoneNoAnswer} + ")");
}

TEST_F(AppDelegateMenusTest, anIdlePhoneHasNoRow) {
    leavePairing();
    launchProgram();
    startSession();
    EXPECT_THAT(statusMenu(), ElementsAre(texts().menuOpen, texts().menuWriteThought, Words{"—"}, texts().menuHideTimer,
                                          texts().menuEndSession));
}

TEST(PhoneStatusTextTest, eachStateButIdleHasWords) {
    const auto& texts = AppStrings::english;
    EXPECT_EQ(phoneStatusText(LockState::idle, texts), "");
    EXPECT_EQ(phoneStatusText(LockState::sending, texts), texts.phoneLocking);
    EXPECT_EQ(phoneStatusText(LockState::locked, texts), texts.phoneLockedNow);
    EXPECT_EQ(phoneStatusText(LockState::noAnswer, texts), texts.phoneNoAnswer);
    EXPECT_EQ(phoneStatusText(LockState::releasedByPhone, texts), texts.phoneReleased);
    EXPECT_EQ(phoneStatusText(LockState::needsSetup, texts), texts.phoneNeedsSetup);
}

TEST_F(AppDelegateMenusTest, theTimersRowTurnsItOffAndOnAndIsSaved) {
    launchProgram();
    startSession();
    ASSERT_TRUE(shell.isTimerShown);
    choose(MenuAction::toggleFloatingTimer);
    EXPECT_FALSE(shell.isTimerShown);
    EXPECT_FALSE(stored<AppSettings>(AppData::settingsFile)->showFloatingTimer);
    EXPECT_EQ(statusMenu()[3], texts().menuShowTimer);
    choose(MenuAction::toggleFloatingTimer);
    EXPECT_TRUE(shell.isTimerShown);
    EXPECT_TRUE(stored<AppSettings>(AppData::settingsFile)->showFloatingTimer);
    EXPECT_EQ(statusMenu()[3], texts().menuHideTimer);
}

TEST_F(AppDelegateMenusTest, theOtherRowsDoWhatTheySay) {
    launchProgram();
    shell.closeWindow();
    choose(MenuAction::openMainFromMenu);
    EXPECT_TRUE(shell.window.isVisible);
    choose(MenuAction::parkFromMenu);
    EXPECT_EQ(shell.thoughtsShown, 1);
    startSession(SessionMode::deep);
    choose(MenuAction::emergencyFromMenu);
    EXPECT_TRUE(shows<Overlay::EmergencyExit>(overlay()));
}

TEST_F(AppDelegateMenusTest, theIconItselfOpensTheMainWindow) {
    launchProgram();
    shell.closeWindow();
    shell.item.calls.pressed();
    EXPECT_TRUE(shell.window.isVisible);
}

TEST_F(AppDelegateMenusTest, whatGoesToATextFieldLeavesTheProgramAlone) {
    launchProgram();
    startSession();
    shell.steps.clear();
    for (const auto action : {MenuAction::none, MenuAction::undo, MenuAction::cut, MenuAction::copy, MenuAction::paste,
                              MenuAction::selectAll, MenuAction::performClose})
        choose(action);
    EXPECT_THAT(shell.steps, ::testing::IsEmpty());
}

TEST_F(AppDelegateMenusTest, aChangeOfLanguageRetitlesWindowAndMainMenuAtOnceAndTheStatusMenuAtItsNextOpening) {
    launchProgram();
    startSession();
    for (const auto language : {AppLanguage::english, AppLanguage::german, AppLanguage::persian}) {
        shell.window.title = "before";
        shell.item.description = "before";
        changeSettings([language](AppSettings& settings) { settings.language = language; });
        const auto& words = AppStrings::of(language);
        EXPECT_EQ(shell.window.title, words.appName);
        EXPECT_EQ(shell.item.description, words.appName);
        EXPECT_EQ(shell.mainMenu[0].items[0].text, words.menuQuitApp);
        EXPECT_EQ(shell.mainMenu[1].title, words.menuEdit);
        EXPECT_EQ(shell.mainMenu[2].items[0].text, words.menuClose);
        EXPECT_EQ(statusMenu().front(), words.menuOpen);
    }
}

TEST_F(AppDelegateMenusTest, aChangeOfThemeReachesTheWindowsFrame) {
    launchProgram();
    for (const auto theme : {ColorTheme::dawn, ColorTheme::aurora, ColorTheme::dawn, ColorTheme::dusk}) {
        changeSettings([theme](AppSettings& settings) { settings.colorTheme = theme; });
        EXPECT_EQ(shell.appearance,
                  theme == ColorTheme::dawn ? DesktopShell::Appearance::light : DesktopShell::Appearance::dark);
    }
}

TEST_F(AppDelegateMenusTest, aChangeOfSettingsMakesNoMainWindow) {
    launchProgram(LaunchedBy::watchdog);
    changeSettings([](AppSettings& settings) { settings.language = AppLanguage::english; });
    EXPECT_THAT(shell.steps, ::testing::Not(::testing::Contains("main window")));
}

} // namespace
} // namespace velmorin
