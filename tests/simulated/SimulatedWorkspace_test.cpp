#include "app/platform/simulated/SimulatedWorkspace.h"

#include "tests/simulated/WorldTest.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <optional>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SimulatedWorkspaceTest : public WorldTest {
protected:
    static constexpr std::int32_t editor = 10;
    static constexpr std::int32_t mail = 11;
    static constexpr std::int32_t game = 12;

    SimulatedWorkspaceTest() {
        add(editor, "editor");
        add(mail, "mail");
        add(game, "game");
    }
    bool add(std::int32_t pid, const std::string& name, ActivationPolicy policy = ActivationPolicy::regular) {
        return workspace.add({pid, "org.example." + name, name, policy});
    }
    Workspace::Application find(std::int32_t pid) {
        for (auto& application : workspace.runningApplications()) {
            if (application->processIdentifier() == pid) return application;
        }
        return nullptr;
    }
    std::optional<std::int32_t> front() {
        const auto application = workspace.frontmostApplication();
        return application ? std::optional{application->processIdentifier()} : std::nullopt;
    }
    void activate(std::int32_t pid) {
        workspace.activate(pid);
        settle();
    }
    void watch() {
        m_activations = workspace.observeActivations([this](const Workspace::Application& application) {
            told.push_back("front " + std::to_string(application->processIdentifier()));
        });
        m_launches = workspace.observeLaunches([this](const Workspace::Application& application) {
            told.push_back("start " + std::to_string(application->processIdentifier()));
        });
    }

    SimulatedWorkspace& workspace = desktop.workspace;
    std::vector<std::string> told;

private:
    Cancellable m_activations;
    Cancellable m_launches;
};

TEST_F(SimulatedWorkspaceTest, whatIsHiddenInFrontGivesItToTheOneThatWasThereBefore) {
    activate(editor);
    activate(mail);
    activate(editor);
    activate(game);
    watch();
    find(game)->hide();
    EXPECT_EQ(front(), editor);
    settle();
    EXPECT_THAT(told, ElementsAre("front 10"));
    find(editor)->hide();
    EXPECT_EQ(front(), mail);
}

TEST_F(SimulatedWorkspaceTest, whatEndsInFrontGivesItToTheOneThatWasThereBefore) {
    activate(editor);
    activate(mail);
    watch();
    workspace.quit(mail);
    settle();
    EXPECT_EQ(front(), editor);
    EXPECT_THAT(told, ElementsAre("front 10"));
}

TEST_F(SimulatedWorkspaceTest, whatWasNeverInFrontComesLastAndInTheOrderOfItsStart) {
    activate(game);
    activate(mail);
    workspace.quit(mail);
    EXPECT_EQ(front(), game);
    add(20, "late");
    workspace.quit(game);
    EXPECT_EQ(front(), editor);
    workspace.quit(editor);
    EXPECT_EQ(front(), 20);
}

TEST_F(SimulatedWorkspaceTest, onlyTheRegularAndShownComeToTheFrontByThemselves) {
    add(20, "helper", ActivationPolicy::accessory);
    add(21, "agent", ActivationPolicy::prohibited);
    activate(20);
    activate(21);
    activate(mail);
    find(editor)->hide();
    find(game)->hide();
    settle();
    watch();
    workspace.quit(mail);
    settle();
    EXPECT_EQ(front(), std::nullopt);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SimulatedWorkspaceTest, whatIsHiddenBehindLeavesTheFrontAlone) {
    activate(editor);
    watch();
    find(game)->hide();
    workspace.quit(mail);
    settle();
    EXPECT_EQ(front(), editor);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SimulatedWorkspaceTest, activatingShowsWhatWasHidden) {
    activate(editor);
    find(game)->hide();
    activate(game);
    EXPECT_FALSE(find(game)->isHidden());
    EXPECT_EQ(front(), game);
}

TEST_F(SimulatedWorkspaceTest, anActivationOfWhatIsInFrontIsNotAnnounced) {
    activate(editor);
    watch();
    activate(editor);
    find(editor)->activate();
    settle();
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SimulatedWorkspaceTest, notificationsComeAtTheSameMomentInTheirOrderOnceTheCallHasEnded) {
    watch();
    workspace.launch({20, "org.example.new", "New"}, true);
    workspace.activate(editor);
    EXPECT_THAT(told, IsEmpty());
    settle();
    EXPECT_THAT(told, ElementsAre("start 20", "front 20", "front 10"));
    EXPECT_EQ(desktop.time.elapsed(), 0);
}

TEST_F(SimulatedWorkspaceTest, whoCameAfterAnEventIsNotToldOfIt) {
    workspace.activate(editor);
    watch();
    settle();
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SimulatedWorkspaceTest, thePoliteGoHalfASecondAfterTheyWereAsked) {
    find(mail)->terminate();
    advance(0.4);
    find(mail)->terminate();
    EXPECT_TRUE(workspace.isRunning(mail));
    advance(0.1);
    EXPECT_FALSE(workspace.isRunning(mail));
}

TEST_F(SimulatedWorkspaceTest, aRequestIsNotInheritedByTheNextProcessWithTheSameIdentifier) {
    find(mail)->terminate();
    workspace.quit(mail);
    EXPECT_TRUE(workspace.launch({mail, "org.example.other", "Other"}, false));
    advance(10);
    EXPECT_TRUE(workspace.isRunning(mail));
}

TEST_F(SimulatedWorkspaceTest, theStubbornGoOnlyForTheUser) {
    workspace.launch({20, "org.example.s", "S", ActivationPolicy::regular, false, QuitManners::never}, true);
    find(20)->terminate();
    advance(60);
    EXPECT_TRUE(workspace.isRunning(20));
    workspace.quit(20);
    EXPECT_FALSE(workspace.isRunning(20));
}

TEST_F(SimulatedWorkspaceTest, anOpenedApplicationStartsAfterAFifthOfASecond) {
    workspace.installed = {"org.example.fresh"};
    watch();
    workspace.open(*workspace.locate("org.example.fresh"), Workspace::Opening::activating);
    advance(0.19);
    EXPECT_THAT(told, IsEmpty());
    desktop.time.advanceUntil(SimulatedWorkspace::openDelay);
    EXPECT_THAT(told, ElementsAre("start 13", "front 13"));
    EXPECT_EQ(find(13)->bundleIdentifier(), "org.example.fresh");
    EXPECT_EQ(find(13)->localizedName(), std::nullopt);
}

TEST_F(SimulatedWorkspaceTest, anApplicationThatStartedMeanwhileIsOnlyBroughtForward) {
    workspace.installed = {"org.example.fresh"};
    workspace.open("org.example.fresh", Workspace::Opening::activating);
    workspace.launch({20, "org.example.fresh", "Fresh"}, false);
    advance(1);
    EXPECT_EQ(workspace.runningApplications("org.example.fresh").size(), 1U);
    EXPECT_EQ(front(), 20);
}

TEST_F(SimulatedWorkspaceTest, whatIsNotInstalledDoesNotOpen) {
    EXPECT_EQ(workspace.locate("org.example.fresh"), std::nullopt);
    workspace.open("org.example.fresh", Workspace::Opening::activating);
    advance(1);
    EXPECT_EQ(workspace.list().size(), 3U);
}

TEST_F(SimulatedWorkspaceTest, theProgramsActsAreEventsAndTheUsersAreNot) {
    activate(game);
    workspace.unhide(game);
    workspace.launch({20, "org.example.new", "New"}, true);
    workspace.quit(20);
    workspace.leaveFront();
    settle();
    EXPECT_THAT(takeEvents(), IsEmpty());
    const auto application = find(game);
    application->hide();
    application->unhide();
    application->activate();
    application->terminate();
    workspace.open("org.example.fresh", Workspace::Opening::inBackground);
    EXPECT_THAT(takeEvents(), ElementsAre("hide \"pid\":12", "unhide \"pid\":12", "activate \"pid\":12",
                                          "terminate \"pid\":12", "open \"bundleID\":\"org.example.fresh\""));
}

TEST_F(SimulatedWorkspaceTest, anIdentifierIsTakenOnce) {
    EXPECT_FALSE(add(editor, "twice"));
    EXPECT_FALSE(workspace.launch({editor, "org.example.twice", "Twice"}, true));
    EXPECT_EQ(front(), std::nullopt);
    EXPECT_EQ(workspace.list().size(), 3U);
}

TEST_F(SimulatedWorkspaceTest, processesOfTheProgramItselfDoNotCountAmongTheUsedIdentifiers) {
    EXPECT_TRUE(add(SimulatedWorkspace::firstOwnPID, "self"));
    EXPECT_EQ(workspace.unusedPID(), 13);
    add(40, "late");
    workspace.quit(40);
    EXPECT_EQ(workspace.unusedPID(), 41);
}

TEST_F(SimulatedWorkspaceTest, whatIsNotThereCannotBeActedOn) {
    EXPECT_FALSE(workspace.startInFront(99));
    workspace.activate(99);
    workspace.unhide(99);
    workspace.quit(99);
    settle();
    EXPECT_EQ(front(), std::nullopt);
    EXPECT_EQ(workspace.list().size(), 3U);
}

TEST_F(SimulatedWorkspaceTest, theFrontAtTheStartOfAScenarioIsNoNews) {
    watch();
    EXPECT_TRUE(workspace.startInFront(mail));
    settle();
    EXPECT_THAT(told, IsEmpty());
    activate(game);
    workspace.quit(game);
    EXPECT_EQ(front(), mail);
}

} // namespace
} // namespace velmorin
