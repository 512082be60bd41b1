#include "tests/engine/EnforcementTest.h"

namespace velmorin {
namespace {

/// Hiding moves the front, and moving the front calls for hiding. Settling throws where that finds no end; here it is
/// also counted how soon it does.
class EnforcementRestTest : public EnforcementTest {
protected:
    /// Nothing but what browsers are asked happens any more in a minute.
    void expectRest() {
        const auto activations = events("activate").size();
        const auto hides = events("hide").size();
        const auto counted = attempts();
        advance(60);
        EXPECT_EQ(events("activate").size(), activations);
        EXPECT_EQ(events("hide").size(), hides);
        EXPECT_EQ(attempts(), counted);
    }
    void expectActivationsAtMost(std::size_t most) { EXPECT_LE(events("activate").size(), most); }
};

TEST_F(EnforcementRestTest, aSecondSessionThatForbidsWhatIsRememberedFromTheFirstComesToRest) {
    addEditorAndGame();
    addApplication(mail, mailID, "Mail");
    startSession(profile(SessionMode::pomodoro));
    endSession();
    ASSERT_EQ(controller().lastAllowedBundleID(), editorID);
    activate(program().pid());
    forgetEvents();
    startSession(allowing({mailID}));
    EXPECT_EQ(front(), mail);
    EXPECT_TRUE(isHidden(editor));
    EXPECT_EQ(times("hide", editor), 1U);
    EXPECT_EQ(times("activate", editor), 0U);
    expectActivationsAtMost(1);
    EXPECT_EQ(attempts(), 0);
    expectRest();
}

TEST_F(EnforcementRestTest, aSecondSessionThatAllowsNothingThatRunsComesToRest) {
    addEditorAndGame();
    addApplication(finder, finderID, "Finder");
    startSession(profile(SessionMode::pomodoro));
    endSession();
    activate(program().pid());
    forgetEvents();
    startSession(allowing({mailID}));
    EXPECT_EQ(front(), finder);
    EXPECT_TRUE(isHidden(editor));
    expectActivationsAtMost(1);
    expectRest();
}

TEST_F(EnforcementRestTest, aSecondSessionOverARememberedApplicationThatHasQuitComesToRest) {
    addEditorAndGame();
    desktop().workspace.installed = {editorID, mailID};
    startSession(profile(SessionMode::pomodoro));
    endSession();
    desktop().workspace.quit(editor);
    activate(program().pid());
    forgetEvents();
    startSession(allowing({mailID}));
    EXPECT_EQ(events("open").size(), 1U);
    EXPECT_EQ(desktop().workspace.frontmostApplication()->bundleIdentifier(), mailID);
    expectRest();
}

TEST_F(EnforcementRestTest, theBrowserInFrontRefusesWhileNothingCountsComesToRest) {
    addEditorAndGame();
    addBrowser(chromeKind);
    answer(chromeKind, Denied{});
    desktop().workspace.startInFront(chrome);
    launch();
    forgetEvents();
    startSession(profile(SessionMode::pomodoro, {chromeID}));
    EXPECT_TRUE(isHidden(chrome));
    EXPECT_EQ(times("hide", chrome), 1U);
    EXPECT_EQ(front(), editor);
    EXPECT_EQ(attempts(), 0);
    expectActivationsAtMost(2); // the browser at the start, the editor at the refusal
    expectRest();
}

TEST_F(EnforcementRestTest, theBrowserInFrontRefusesAndNothingElseIsAllowedComesToRest) {
    addEditorAndGame();
    addBrowser(chromeKind);
    answer(chromeKind, Denied{});
    desktop().workspace.startInFront(chrome);
    launch();
    forgetEvents();
    startSession(allowing({chromeID}));
    EXPECT_TRUE(isHidden(chrome));
    EXPECT_EQ(front(), std::nullopt);
    expectActivationsAtMost(1);
    expectRest();
}

TEST_F(EnforcementRestTest, theBrowserLastInFrontRefusesBehindTheProgramsOwnWindowComesToRest) {
    addEditorAndGame();
    addBrowser(chromeKind);
    startSession(profile(SessionMode::pomodoro, {chromeID}));
    activate(chrome);
    answer(chromeKind, Denied{});
    activate(program().pid());
    forgetEvents();
    advance(3);
    ASSERT_TRUE(isHidden(chrome));
    ASSERT_EQ(controller().lastAllowedBundleID(), chromeID);
    EXPECT_EQ(attempts(), 0);
    expectActivationsAtMost(0);
    controller().returnToWork();
    settle();
    EXPECT_EQ(front(), editor);
    EXPECT_EQ(times("activate", chrome), 0U);
    expectActivationsAtMost(1);
    expectRest();
}

TEST_F(EnforcementRestTest, anAllowedApplicationAmongTheOnlyOnesBlockedComesToRest) {
    setup.onlyBlock = AppPolicy::BundleIDs{gameID, editorID};
    addEditorAndGame();
    addApplication(mail, mailID, "Mail");
    launch();
    forgetEvents();
    startSession(allowing({editorID, mailID}));
    EXPECT_TRUE(isHidden(editor));
    EXPECT_EQ(times("hide", editor), 1U);
    EXPECT_EQ(times("activate", editor), 0U);
    EXPECT_EQ(front(), mail);
    expectActivationsAtMost(2); // by the first tick and by the start itself
    expectRest();
}

TEST_F(EnforcementRestTest, nothingButAnAllowedApplicationAmongTheOnlyOnesBlockedComesToRest) {
    setup.onlyBlock = AppPolicy::BundleIDs{editorID};
    addApplication(editor, editorID, "Editor");
    desktop().workspace.startInFront(editor);
    desktop().workspace.installed = {editorID};
    launch();
    forgetEvents();
    startSession(allowing({editorID}));
    EXPECT_TRUE(isHidden(editor));
    EXPECT_EQ(front(), std::nullopt);
    EXPECT_EQ(events("open").size(), 0U);
    expectActivationsAtMost(0);
    expectRest();
}

TEST_F(EnforcementRestTest, anAccessoryInFrontThatCannotBeHiddenComesToRest) {
    addEditorAndGame();
    desktop().workspace.add({20, "org.example.menu", "Menu", ActivationPolicy::accessory});
    launch();
    controller().start(profile(SessionMode::pomodoro), "");
    settle();
    forgetEvents();
    activate(20);
    EXPECT_EQ(front(), editor);
    expectActivationsAtMost(1);
    expectRest();
}

TEST_F(EnforcementRestTest, aStubbornNewcomerThatComesBackAgainAndAgainComesToRest) {
    addEditorAndGame();
    startSession(profile(SessionMode::pomodoro));
    const std::int32_t pid = start("org.example.new", QuitManners::never);
    for (int i = 0; i < 20; ++i) {
        activate(pid);
        advance(1);
    }
    EXPECT_TRUE(isHidden(pid));
    EXPECT_EQ(times("terminate", pid), 6U);
    EXPECT_EQ(front(), editor);
    expectRest();
}

} // namespace
} // namespace velmorin
