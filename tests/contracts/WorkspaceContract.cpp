#include "tests/contracts/WorkspaceContract.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace velmorin {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

Workspace::Application WorkspaceContract::find(std::int32_t pid) {
    const auto running = workspace().runningApplications();
    const auto found =
        std::ranges::find(running, pid, [](const auto& application) { return application->processIdentifier(); });
    return found == running.end() ? nullptr : *found;
}

Workspace::Observer WorkspaceContract::noting(const std::string& word) {
    return [this, word](const Workspace::Application& application) {
        notes.push_back(word + " " + (application ? application->bundleIdentifier().value_or("-") : "nobody"));
    };
}

namespace {

TEST_P(WorkspaceContract, theFrontIsWhatTheUserActivatedLast) {
    const auto editor = launch(editorID);
    const auto game = launch(gameID);
    EXPECT_TRUE(bench().eventually([&] { return isFront(game); }));
    bench().userActivates(editor);
    EXPECT_TRUE(bench().eventually([&] { return isFront(editor); }));
}

TEST_P(WorkspaceContract, thereMayBeNobodyInFrontOrTheDesktopItself) {
    launch(editorID);
    bench().nobodyInFront();
    const auto expected = bench().identifierInFrontOfNothing();
    EXPECT_TRUE(bench().eventually([&] {
        const auto front = workspace().frontmostApplication();
        return expected ? front && front->bundleIdentifier() == expected : !front;
    }));
}

TEST_P(WorkspaceContract, theRunningApplicationsAreAllOfThemAndThisProgramToo) {
    const auto editor = launch(editorID);
    const auto nameless = launchNewcomer({std::nullopt, std::nullopt, false});
    EXPECT_NE(find(editor), nullptr);
    EXPECT_NE(find(nameless), nullptr);
    EXPECT_NE(find(bench().ownPID()), nullptr);
}

TEST_P(WorkspaceContract, oneThatHasQuitRunsNoLonger) {
    const auto editor = launch(editorID);
    bench().userQuits(editor);
    EXPECT_TRUE(bench().eventually([&] { return find(editor) == nullptr; }));
    EXPECT_THAT(workspace().runningApplications(editorID), IsEmpty());
}

TEST_P(WorkspaceContract, thoseWithAnIdentifierAreFoundByItTheFirstOneFirst) {
    const auto first = launch(editorID);
    launch(gameID);
    const auto second = launch(editorID);
    const auto found = workspace().runningApplications(editorID);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0]->processIdentifier(), first);
    EXPECT_EQ(found[1]->processIdentifier(), second);
    EXPECT_THAT(workspace().runningApplications("org.example.absent"), IsEmpty());
    EXPECT_THAT(workspace().runningApplications(""), IsEmpty());
}

TEST_P(WorkspaceContract, anApplicationTellsWhoItIs) {
    const auto application = find(launchNewcomer({editorID, "Editor"}));
    ASSERT_NE(application, nullptr);
    EXPECT_EQ(application->bundleIdentifier(), editorID);
    EXPECT_EQ(application->localizedName(), "Editor");
    EXPECT_EQ(application->activationPolicy(), ActivationPolicy::regular);
    EXPECT_FALSE(application->isHidden());
}

TEST_P(WorkspaceContract, anApplicationThatTheSystemDoesNotKnowHasNoIdentifier) {
    if (bench().knowsEveryApplication()) GTEST_SKIP() << "the name of its program is an identifier too";
    const auto application = find(launchNewcomer({std::nullopt, std::nullopt, false}));
    ASSERT_NE(application, nullptr);
    EXPECT_EQ(application->bundleIdentifier(), std::nullopt);
}

TEST_P(WorkspaceContract, anApplicationWithoutWindowsIsNotRegular) {
    const auto application = find(launchNewcomer({editorID, "Helper", false, false, false}));
    ASSERT_NE(application, nullptr);
    EXPECT_NE(application->activationPolicy(), ActivationPolicy::regular);
}

TEST_P(WorkspaceContract, anObserverHearsOfEveryActivationUntilItGoes) {
    const auto editor = launch(editorID);
    const auto game = launch(gameID);
    {
        const auto observing = workspace().observeActivations(noting("front"));
        bench().userActivates(editor);
        EXPECT_TRUE(bench().eventually([&] { return notes.size() == 1; }));
        bench().userActivates(game);
        EXPECT_TRUE(bench().eventually([&] { return notes.size() == 2; }));
    }
    bench().userActivates(editor);
    bench().settle();
    EXPECT_THAT(notes, ElementsAre("front org.example.editor", "front org.example.game"));
}

TEST_P(WorkspaceContract, whatIsInFrontAlreadyDoesNotComeToTheFront) {
    const auto editor = launch(editorID);
    const auto observing = workspace().observeActivations(noting("front"));
    bench().userActivates(editor);
    bench().settle();
    find(editor)->activate();
    bench().settle();
    EXPECT_THAT(notes, IsEmpty());
}

TEST_P(WorkspaceContract, thisProgramsOwnActivationsAreToldLikeTheUsers) {
    const auto editor = launch(editorID);
    launch(gameID);
    const auto observing = workspace().observeActivations(noting("front"));
    find(editor)->activate();
    EXPECT_TRUE(bench().eventually([&] { return notes.size() == 1; }));
    EXPECT_THAT(notes, ElementsAre("front org.example.editor"));
}

TEST_P(WorkspaceContract, noObserverIsToldFromWithinAnOperation) {
    const auto editor = launch(editorID);
    const auto game = launch(gameID);
    bench().install("org.example.mail");
    const auto activations = workspace().observeActivations(noting("front"));
    const auto launches = workspace().observeLaunches(noting("start"));
    find(editor)->activate();
    EXPECT_THAT(notes, IsEmpty());
    EXPECT_TRUE(bench().eventually([&] { return notes.size() == 1; }));
    // What is hidden gives the front to another, which is told of likewise.
    find(editor)->hide();
    EXPECT_EQ(notes.size(), 1U);
    EXPECT_TRUE(bench().eventually([&] { return isFront(game); }));
    const auto before = notes.size();
    workspace().open(workspace().locate("org.example.mail").value_or(""), Workspace::Opening::activating);
    EXPECT_EQ(notes.size(), before);
}

TEST_P(WorkspaceContract, anObserverThatIsCancelledHearsNothingMoreOfWhatIsUnderWay) {
    const auto editor = launch(editorID);
    launch(gameID);
    auto observing = workspace().observeActivations(noting("front"));
    find(editor)->activate();
    observing.cancel();
    bench().settle();
    EXPECT_THAT(notes, IsEmpty());
}

TEST_P(WorkspaceContract, anObserverMayCancelItselfOrAnotherWhileItIsTold) {
    const auto editor = launch(editorID);
    const auto game = launch(gameID);
    Cancellable first;
    Cancellable second;
    first = workspace().observeActivations([&](const Workspace::Application&) {
        notes.emplace_back("first");
        first.cancel();
        second.cancel();
    });
    second = workspace().observeActivations(noting("second"));
    bench().userActivates(editor);
    bench().settle();
    bench().userActivates(game);
    bench().settle();
    EXPECT_THAT(notes, ElementsAre("first"));
}

TEST_P(WorkspaceContract, whatStartsInFrontIsToldAsALaunchBeforeAnActivation) {
    const auto activations = workspace().observeActivations(noting("front"));
    const auto launches = workspace().observeLaunches(noting("start"));
    launch(editorID);
    EXPECT_TRUE(bench().eventually([&] { return notes.size() == 2; }));
    EXPECT_THAT(notes, ElementsAre("start org.example.editor", "front org.example.editor"));
}

TEST_P(WorkspaceContract, whatStartsBehindIsToldAsALaunchOnly) {
    launch(editorID);
    const auto activations = workspace().observeActivations(noting("front"));
    const auto launches = workspace().observeLaunches(noting("start"));
    launch(gameID, false);
    EXPECT_TRUE(bench().eventually([&] { return !notes.empty(); }));
    bench().settle();
    EXPECT_THAT(notes, ElementsAre("start org.example.game"));
}

TEST_P(WorkspaceContract, onlyWhatIsInstalledIsLocated) {
    bench().install(editorID);
    EXPECT_TRUE(workspace().locate(editorID));
    EXPECT_EQ(workspace().locate("org.example.absent"), std::nullopt);
}

TEST_P(WorkspaceContract, anOpenedApplicationStartsAndComesToTheFront) {
    bench().install(editorID);
    const auto launches = workspace().observeLaunches(noting("start"));
    workspace().open(*workspace().locate(editorID), Workspace::Opening::activating);
    EXPECT_TRUE(bench().eventually([&] {
        const auto front = workspace().frontmostApplication();
        return front && front->bundleIdentifier() == editorID;
    }));
    EXPECT_THAT(notes, ElementsAre("start org.example.editor"));
}

TEST_P(WorkspaceContract, anApplicationOpenedInTheBackgroundLeavesTheFrontAlone) {
    bench().install(editorID);
    const auto game = launch(gameID);
    workspace().open(*workspace().locate(editorID), Workspace::Opening::inBackground);
    EXPECT_TRUE(bench().eventually([&] { return !workspace().runningApplications(editorID).empty(); }));
    bench().settle();
    EXPECT_TRUE(isFront(game));
}

TEST_P(WorkspaceContract, whatRunsAlreadyIsNotStartedASecondTime) {
    bench().install(editorID);
    const auto editor = launch(editorID);
    launch(gameID);
    workspace().open(*workspace().locate(editorID), Workspace::Opening::activating);
    EXPECT_TRUE(bench().eventually([&] { return isFront(editor); }));
    EXPECT_EQ(workspace().runningApplications(editorID).size(), 1U);
}

TEST_P(WorkspaceContract, openingWhatIsNotThereDoesNothing) {
    const auto game = launch(gameID);
    const auto before = workspace().runningApplications().size();
    workspace().open("/nowhere/at/all.desktop", Workspace::Opening::activating);
    bench().wait(0.5);
    EXPECT_EQ(workspace().runningApplications().size(), before);
    EXPECT_TRUE(isFront(game));
}

TEST_P(WorkspaceContract, whatIsHiddenRunsOnAndIsNoLongerInFront) {
    const auto editor = launch(editorID);
    const auto game = launch(gameID);
    find(game)->hide();
    EXPECT_TRUE(bench().eventually([&] { return find(game) && find(game)->isHidden(); }));
    EXPECT_TRUE(bench().eventually([&] { return !isFront(game); }));
    EXPECT_FALSE(find(editor)->isHidden());
}

TEST_P(WorkspaceContract, whatIsShownAgainStaysBehind) {
    const auto editor = launch(editorID);
    const auto game = launch(gameID);
    find(game)->hide();
    EXPECT_TRUE(bench().eventually([&] { return isFront(editor); }));
    find(game)->unhide();
    EXPECT_TRUE(bench().eventually([&] { return !find(game)->isHidden(); }));
    bench().settle();
    EXPECT_TRUE(isFront(editor));
}

TEST_P(WorkspaceContract, hidingAndShowingTwiceIsLikeOnce) {
    launch(editorID);
    const auto game = launch(gameID);
    find(game)->hide();
    find(game)->hide();
    EXPECT_TRUE(bench().eventually([&] { return find(game)->isHidden(); }));
    find(game)->unhide();
    find(game)->unhide();
    EXPECT_TRUE(bench().eventually([&] { return !find(game)->isHidden(); }));
}

TEST_P(WorkspaceContract, anActivatedApplicationIsInFrontAndShown) {
    launch(editorID);
    const auto game = launch(gameID);
    find(game)->hide();
    EXPECT_TRUE(bench().eventually([&] { return find(game)->isHidden(); }));
    find(game)->activate();
    EXPECT_TRUE(bench().eventually([&] { return isFront(game) && !find(game)->isHidden(); }));
}

TEST_P(WorkspaceContract, anApplicationThatIsAskedToQuitGoes) {
    const auto editor = launch(editorID);
    find(editor)->terminate();
    EXPECT_TRUE(bench().eventually([&] { return find(editor) == nullptr; }));
}

TEST_P(WorkspaceContract, anApplicationThatIgnoresTheRequestIsNotForced) {
    const auto stubborn = launchNewcomer({gameID, "Game", true, true});
    for (int request = 0; request < 6; ++request) {
        find(stubborn)->terminate();
        bench().wait(0.2);
    }
    bench().wait(1);
    EXPECT_NE(find(stubborn), nullptr);
}

TEST_P(WorkspaceContract, whatIsGoneKeepsItsIdentityAndDoesNothing) {
    const auto editor = launch(editorID);
    const auto game = launch(gameID);
    const auto held = find(game);
    bench().userQuits(game);
    EXPECT_TRUE(bench().eventually([&] { return find(game) == nullptr && isFront(editor); }));
    const auto activations = workspace().observeActivations(noting("front"));
    held->activate();
    held->hide();
    held->unhide();
    held->terminate();
    bench().wait(1);
    EXPECT_EQ(held->processIdentifier(), game);
    EXPECT_EQ(held->bundleIdentifier(), gameID);
    EXPECT_EQ(held->localizedName(), "org.example.game by name");
    EXPECT_TRUE(isFront(editor));
    EXPECT_EQ(find(game), nullptr);
    EXPECT_THAT(notes, Not(Contains("front org.example.game")));
}

} // namespace
} // namespace velmorin
