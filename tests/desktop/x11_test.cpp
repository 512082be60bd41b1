// What the workspace of an X11 desktop does beyond its contract, and the hot key, on a real display.

#include "app/platform/linux/x11/X11HotKey.h"
#include "tests/support/X11World.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class X11Test : public ::testing::Test {
protected:
    Workspace& workspace() { return world.workspace(); }
    std::string front() { return workspace().frontmostApplication()->bundleIdentifier().value_or("none"); }
    bool becomes(const std::function<bool()>& condition) { return world.runner().runUntil(condition, 20); }
    void settle() { world.runner().run(0.3); }
    bool isMarked(const WindowProgram& program) { return !world.words(program.window(), "_VELMORIN_HIDDEN").empty(); }
    bool isIconic(const WindowProgram& program) {
        const auto state = world.words(program.window(), "WM_STATE");
        return !state.empty() && state.front() == 3;
    }

    X11World world;
};

TEST_F(X11Test, aWindowThatDoesNotTellItsProcessBelongsToItAllTheSame) {
    auto& shy = world.launch("shy", {"--class", "shy", "--no-pid"});
    EXPECT_EQ(world.application(shy.processID())->bundleIdentifier(), "shy");
}

TEST_F(X11Test, severalWindowsOfAProcessAreOneApplicationAndHideTogether) {
    auto& program = world.launch("many", {"--class", "many", "--windows", "3"});
    EXPECT_EQ(workspace().runningApplications("many").size(), 1U);
    settle();
    const auto application = world.application(program.processID());
    application->hide();
    EXPECT_TRUE(becomes([&] { return application->isHidden() && isIconic(program); }));
}

TEST_F(X11Test, aDialogForAnotherProgramsWindowIsItsOwnPrograms) {
    auto& editor = world.launch("editor", {"--class", "editor"});
    auto& game = world.launch("game", {"--class", "game", "--for", std::to_string(editor.window())});
    EXPECT_EQ(world.application(game.processID())->bundleIdentifier(), "game");
    EXPECT_EQ(world.application(editor.processID())->bundleIdentifier(), "editor");
}

TEST_F(X11Test, aProgramThatStandsInNoTaskBarIsAnApplicationLikeAnother) {
    for (const std::vector<std::string>& options :
         {std::vector<std::string>{"--skip-taskbar"}, std::vector<std::string>{"--type", "utility"}}) {
        std::vector<std::string> arguments{"--class", "dropdown"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        auto& program = world.launch("dropdown", arguments);
        EXPECT_EQ(world.application(program.processID())->activationPolicy(), ActivationPolicy::regular);
        world.application(program.processID())->hide();
        EXPECT_TRUE(becomes([&] { return isIconic(program); }));
        program.kill();
    }
}

TEST_F(X11Test, aProgramThatGoesToTheTrayAndComesBackIsLaunchedOnce) {
    std::vector<std::string> launched;
    const auto observing = workspace().observeLaunches(
        [&](const Workspace::Application& application) { launched.push_back(*application->bundleIdentifier()); });
    auto& program = world.launch("player", {"--class", "player"});
    for (int times = 0; times < 2; ++times) {
        program.tell("unmap");
        EXPECT_TRUE(becomes([&] { return world.application(program.processID()) == nullptr; }));
        program.tell("map");
        EXPECT_TRUE(becomes([&] { return world.application(program.processID()) != nullptr; }));
    }
    settle();
    EXPECT_THAT(launched, ElementsAre("player"));
}

TEST_F(X11Test, whatAWindowForbidsItsManagerIsPutBackWhenItIsShown) {
    auto& stiff = world.launch("stiff", {"--class", "stiff", "--not-iconifiable"});
    settle();
    const auto before = world.words(stiff.window(), "_MOTIF_WM_HINTS");
    world.application(stiff.processID())->hide();
    EXPECT_TRUE(becomes([&] { return isIconic(stiff); }));
    EXPECT_NE(world.words(stiff.window(), "_MOTIF_WM_HINTS"), before);
    world.application(stiff.processID())->unhide();
    EXPECT_TRUE(becomes([&] { return !isIconic(stiff); }));
    EXPECT_EQ(world.words(stiff.window(), "_MOTIF_WM_HINTS"), before);
}

TEST_F(X11Test, withNoActiveWindowTheDesktopIsInFrontAndNobodyIsToldOfIt) {
    world.launch("editor", {"--class", "editor"});
    EXPECT_TRUE(becomes([&] { return front() == "editor"; }));
    std::vector<std::string> told;
    const auto observing = workspace().observeActivations(
        [&](const Workspace::Application& application) { told.push_back(*application->bundleIdentifier()); });
    world.userIconifiesAll();
    EXPECT_TRUE(becomes([&] { return front() == "com.apple.finder"; }));
    settle();
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(X11Test, aPanelADesktopAndANotificationCountAsThatPartOfTheSystem) {
    const std::vector<std::pair<std::string, std::string>> parts{{"dock", "com.apple.dock"},
                                                                 {"desktop", "com.apple.finder"},
                                                                 {"notification", "com.apple.notificationcenterui"}};
    for (const auto& [type, identifier] : parts) {
        WindowProgram part{VELMORIN_TEST_WINDOW, {"--class", "part", "--type", type}};
        settle();
        EXPECT_EQ(world.application(part.processID()), nullptr) << type;
        world.userActivates(part.window());
        EXPECT_TRUE(becomes([&] { return front() == identifier; })) << type << " " << front();
        EXPECT_EQ(world.words(world.connection().root(), "_NET_ACTIVE_WINDOW").front(), part.window()) << type;
        part.kill();
    }
}

TEST_F(X11Test, aSplashScreenIsNotYetALaunch) {
    std::vector<std::string> launched;
    const auto observing = workspace().observeLaunches(
        [&](const Workspace::Application& application) { launched.push_back(*application->bundleIdentifier()); });
    auto& slow = world.launch("slow", {"--class", "slow", "--type", "splash"});
    settle();
    EXPECT_THAT(launched, IsEmpty());
    EXPECT_NE(world.application(slow.processID())->activationPolicy(), ActivationPolicy::regular);
    slow.tell("dialog");
    EXPECT_TRUE(becomes([&] { return !launched.empty(); }));
    settle();
    EXPECT_THAT(launched, ElementsAre("slow"));
}

TEST_F(X11Test, aProgramThatRanBeforeIsNotLaunchedWhenItShowsAWindow) {
    auto& program = world.launch("tray", {"--class", "tray"});
    program.tell("unmap");
    EXPECT_TRUE(becomes([&] { return world.application(program.processID()) == nullptr; }));
    world.runner().run(0.05);
    X11World later;
    std::vector<std::string> launched;
    const auto observing = later.workspace().observeLaunches(
        [&](const Workspace::Application& application) { launched.push_back(*application->bundleIdentifier()); });
    program.tell("map");
    EXPECT_TRUE(later.runner().runUntil([&] { return later.application(program.processID()) != nullptr; }));
    later.runner().run(0.3);
    EXPECT_THAT(launched, IsEmpty());
    program.quit();
}

TEST_F(X11Test, aWindowThatTakesNoRequestsToCloseIsLeftAlone) {
    auto& rude = world.launch("rude", {"--class", "rude", "--no-delete-requests"});
    settle();
    world.application(rude.processID())->terminate();
    world.runner().run(1);
    EXPECT_TRUE(rude.isRunning());
}

TEST_F(X11Test, onlyWhatThisProgramHasHiddenIsShownAgain) {
    auto& game = world.launch("game", {"--class", "game"});
    auto& other = world.launch("other", {"--class", "other"});
    world.userIconifies(other.window());
    EXPECT_TRUE(becomes([&] { return isIconic(other) && world.application(other.processID())->isHidden(); }));
    for (auto* program : {&game, &other})
        world.application(program->processID())->hide();
    EXPECT_TRUE(becomes([&] { return isIconic(game) && isMarked(game); }));
    EXPECT_FALSE(isMarked(other));
    for (auto* program : {&game, &other})
        world.application(program->processID())->unhide();
    EXPECT_TRUE(becomes([&] { return !isIconic(game) && !isMarked(game); }));
    settle();
    EXPECT_TRUE(isIconic(other));
}

TEST_F(X11Test, anotherProcessShowsWhatTheLastOneHadHidden) {
    auto& game = world.launch("game", {"--class", "game"});
    world.application(game.processID())->hide();
    EXPECT_TRUE(becomes([&] { return isIconic(game) && isMarked(game); }));
    const auto connection = X11Connection::open(world.runner().loop());
    X11Desk next{*connection, [](const X11Clients::Change&) {}};
    next.show(std::array{xcb_window_t{game.window()}});
    EXPECT_TRUE(becomes([&] { return !isIconic(game); }));
}

TEST_F(X11Test, aWindowThatItsUserBringsBackLosesTheMark) {
    auto& game = world.launch("game", {"--class", "game"});
    world.application(game.processID())->hide();
    EXPECT_TRUE(becomes([&] { return isIconic(game) && isMarked(game); }));
    world.runner().run(0.6);
    world.userActivates(game.window());
    EXPECT_TRUE(becomes([&] { return !isIconic(game) && !isMarked(game); }));
}

TEST_F(X11Test, anApplicationThatItsUserBringsBackIsInFrontAndNotHidden) {
    world.launch("editor", {"--class", "editor"});
    auto& game = world.launch("game", {"--class", "game"});
    const auto application = world.application(game.processID());
    application->hide();
    EXPECT_TRUE(becomes([&] { return isIconic(game) && front() == "editor"; }));
    bool wasHidden = true;
    const auto observing = workspace().observeActivations([&](const Workspace::Application& activated) {
        if (activated == application) wasHidden = activated->isHidden();
    });
    world.userActivates(game.window());
    EXPECT_TRUE(becomes([&] { return front() == "game" && !wasHidden; }));
}

TEST_F(X11Test, activatingBringsTheWindowThatWasUsedLast) {
    auto& game = world.launch("game", {"--class", "game", "--windows", "2"});
    auto& editor = world.launch("editor", {"--class", "editor"});
    settle();
    const auto first = game.window(); // the one that was shown first; the second took the front
    world.userActivates(first);
    EXPECT_TRUE(becomes([&] { return front() == "game"; }));
    world.userActivates(editor.window());
    EXPECT_TRUE(becomes([&] { return front() == "editor"; }));
    world.application(game.processID())->activate();
    EXPECT_TRUE(becomes([&] { return front() == "game"; }));
    const auto root = world.connection().root();
    EXPECT_EQ(world.words(root, "_NET_ACTIVE_WINDOW").front(), first);
}

TEST_F(X11Test, aConnectionToNoServerIsNone) {
    EXPECT_EQ(X11Connection::open(world.runner().loop(), ":6789"), nullptr);
}

class X11HotKeyTest : public X11Test {
protected:
    void press(const std::string& keys) {
        ASSERT_EQ(std::system(("xdotool key " + keys).c_str()), 0);
        world.runner().run(0.2);
    }
    std::function<void()> counting() {
        return [this] { ++presses; };
    }

    int presses = 0;
};

TEST_F(X11HotKeyTest, controlAltTIsHeardWhicheverWindowHasTheKeyboard) {
    const X11HotKey key{world.connection(), counting()};
    world.launch("editor", {"--class", "editor"});
    press("ctrl+alt+t");
    press("ctrl+alt+t");
    EXPECT_EQ(presses, 2);
}

TEST_F(X11HotKeyTest, otherKeysAreLeftAlone) {
    const X11HotKey key{world.connection(), counting()};
    press("ctrl+t");
    press("alt+t");
    press("ctrl+alt+shift+t");
    press("ctrl+alt+y");
    EXPECT_EQ(presses, 0);
}

TEST_F(X11HotKeyTest, theLockKeysDoNotMatter) {
    const X11HotKey key{world.connection(), counting()};
    for (const std::string lock : {"Caps_Lock", "Num_Lock"}) {
        press(lock);
        press("ctrl+alt+t");
    }
    EXPECT_EQ(presses, 2);
    press("Num_Lock");
    press("Caps_Lock");
}

TEST_F(X11HotKeyTest, aKeyThatIsHeldIsOnePress) {
    const X11HotKey key{world.connection(), counting()};
    ASSERT_EQ(std::system("xset r rate 200 50 && xdotool keydown ctrl keydown alt keydown t && sleep 1 && "
                          "xdotool keyup t keyup alt keyup ctrl"),
              0);
    world.runner().run(0.3);
    EXPECT_EQ(presses, 1);
}

TEST_F(X11HotKeyTest, whereAnotherProgramHasTheKeyNothingHappens) {
    const auto elsewhere = X11Connection::open(world.runner().loop());
    int theirs = 0;
    const X11HotKey taken{*elsewhere, [&] { ++theirs; }};
    const X11HotKey key{world.connection(), counting()};
    press("ctrl+alt+t");
    EXPECT_EQ(presses, 0);
    EXPECT_EQ(theirs, 1);
}

TEST_F(X11HotKeyTest, theKeyIsFreeAgainWhenItGoes) {
    { const X11HotKey key{world.connection(), counting()}; }
    const auto elsewhere = X11Connection::open(world.runner().loop());
    int theirs = 0;
    const X11HotKey next{*elsewhere, [&] { ++theirs; }};
    press("ctrl+alt+t");
    EXPECT_EQ(theirs, 1);
    EXPECT_EQ(presses, 0);
}

TEST_F(X11HotKeyTest, aPersianLayoutHasTheKeyWhereTheLetterIsOnALatinOne) {
    ASSERT_EQ(std::system("setxkbmap ir"), 0);
    const X11HotKey key{world.connection(), counting()};
    ASSERT_EQ(std::system("xdotool keydown 37 keydown 64 key 28 keyup 64 keyup 37"), 0);
    world.runner().run(0.3);
    EXPECT_EQ(presses, 1);
    ASSERT_EQ(std::system("setxkbmap us"), 0);
}

TEST_F(X11HotKeyTest, aChangeOfLayoutIsFollowed) {
    const X11HotKey key{world.connection(), counting()};
    ASSERT_EQ(std::system("setxkbmap us dvorak"), 0);
    world.runner().run(0.3);
    press("ctrl+alt+t");
    EXPECT_EQ(presses, 1);
    ASSERT_EQ(std::system("setxkbmap us"), 0);
}

} // namespace
} // namespace velmorin
