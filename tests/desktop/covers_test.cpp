// The windows that cover the screens, among those of other programs: three screens on one X server.

#include "app/platform/linux/x11/X11Layers.h"
#include "app/platform/qt/QtScreens.h"
#include "app/platform/qt/QuickBackdrops.h"
#include "app/platform/qt/QuickShields.h"
#include "app/platform/simulated/SimulatedDesktop.h"
#include "app/shell/BackdropWindows.h"
#include "app/shell/OverlayWindows.h"
#include "core/store/EventLog.h"
#include "tests/desktop/Intruder.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/X11World.h"

#include <QColor>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlEngine>
#include <QQmlPropertyMap>
#include <QQuickWindow>
#include <QScreen>
#include <QUrl>
#include <algorithm>
#include <ctime>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace velmorin {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::uint32_t shieldColor = 0x204060;
constexpr std::uint32_t backdropColor = 0x602040;

void run(const QString& program, const QString& arguments) {
    EXPECT_EQ(QProcess::execute(program, arguments.split(' ')), 0) << qPrintable(program + " " + arguments);
}
void xdotool(const QString& arguments) {
    run("xdotool", arguments);
}
void plug(const QString& monitor) {
    run("xrandr", "--setmonitor " + monitor);
}
void unplug(const QString& monitor) {
    run("xrandr", "--delmonitor " + monitor);
}

constexpr const char* third = "C 640/170x480/127+3200+0 none";

class Motion final : public MotionPreference {
public:
    const Observable<bool>& reducesMotion() const override { return value; }
    Observable<bool> value{true};
};

/// A content whose state a test reads.
struct Content {
    Content(QQmlEngine& engine, std::uint32_t color)
        : content{engine, QUrl::fromLocalFile(VELMORIN_COVER_CONTENT), [this](const CoverContent& made) {
                      return QVariantMap{{"model", QVariant::fromValue<QObject*>(&model)},
                                         {"isPrimary", made.isPrimary},
                                         {"unit", made.unit}};
                  }} {
        model.insert("color", QColor::fromRgb(color));
        model.insert("typed", QString{});
        model.insert("clicks", 0);
    }
    QString typed() const { return model.value("typed").toString(); }
    int clicks() const { return model.value("clicks").toInt(); }

    QQmlPropertyMap model;
    QuickContent content;
};

class CoversTest : public ::testing::Test {
protected:
    CoversTest() {
        EXPECT_TRUE(becomes([] { return QGuiApplication::screens().size() == 3; }));
        xdotool("mousemove 960 540");
    }
    ~CoversTest() override {
        overlay.hide();
        EXPECT_TRUE(becomes([&] { return colorAt(0, 0) != shieldColor; }));
    }

    bool becomes(const std::function<bool()>& condition) {
        const auto held = [&] {
            // The loop of these tests is not the toolkit's own, which does this itself.
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return condition();
        };
        return world.runner().runUntil(held, 10);
    }
    void settle() {
        world.runner().run(0.3);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// The colour on the screen at a point, whichever window shows it.
    std::uint32_t colorAt(std::int16_t x, std::int16_t y) {
        auto* const connection = world.connection().get();
        const auto cookie =
            xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, world.connection().root(), x, y, 1, 1, UINT32_MAX);
        const X11Reply<xcb_get_image_reply_t> image{xcb_get_image_reply(connection, cookie, nullptr)};
        if (!image) return 0;
        const auto* bytes = xcb_get_image_data(image.get());
        return static_cast<std::uint32_t>(bytes[0] | bytes[1] << 8 | bytes[2] << 16);
    }
    /// Whether a colour is seen at a point, or nearly: a compositor may have a window cast a shadow on the next.
    bool shows(std::uint32_t color, std::int16_t x, std::int16_t y) {
        const auto seen = colorAt(x, y);
        constexpr int tolerance = 8;
        for (const unsigned shift : {0U, 8U, 16U}) {
            const auto channel = [shift](std::uint32_t value) { return static_cast<int>(value >> shift & 0xffU); };
            if (std::abs(channel(seen) - channel(color)) > tolerance) return false;
        }
        return true;
    }
    /// Whether one colour is what all three screens show, also at their edges.
    bool covers(std::uint32_t color) {
        return shows(color, 0, 0) && shows(color, 1919, 1079) && shows(color, 1920, 0) && shows(color, 3199, 1023) &&
               shows(color, 3200, 0) && shows(color, 3839, 479);
    }
    /// The windows on the server, the lowest first.
    std::vector<xcb_window_t> stack() {
        auto* const connection = world.connection().get();
        const X11Reply<xcb_query_tree_reply_t> tree{
            xcb_query_tree_reply(connection, xcb_query_tree(connection, world.connection().root()), nullptr)};
        if (!tree) return {};
        const auto* first = xcb_query_tree_children(tree.get());
        return {first, first + xcb_query_tree_children_length(tree.get())};
    }
    std::ptrdiff_t placeOf(xcb_window_t window) {
        const auto windows = stack();
        return std::ranges::find(windows, window) - windows.begin();
    }
    std::ptrdiff_t lowestPlaceOfOurs() {
        auto lowest = std::numeric_limits<std::ptrdiff_t>::max();
        for (const auto window : ourWindows())
            lowest = std::min(lowest, placeOf(window));
        return lowest;
    }
    /// Those that the toolkit shows.
    static std::vector<xcb_window_t> ourWindows() {
        std::vector<xcb_window_t> numbers;
        for (const auto* window : QGuiApplication::topLevelWindows())
            if (window->isVisible()) numbers.push_back(static_cast<xcb_window_t>(window->winId()));
        return numbers;
    }
    /// The number of the screen that has the keyboard.
    int screenOfFocus() {
        for (const auto* window : QGuiApplication::topLevelWindows())
            if (window->isVisible() && window->winId() == focused())
                return static_cast<int>(QGuiApplication::screens().indexOf(window->screen()));
        return -1;
    }
    xcb_window_t focused() {
        auto* const connection = world.connection().get();
        const X11Reply<xcb_get_input_focus_reply_t> reply{
            xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr)};
        return reply ? reply->focus : xcb_window_t{XCB_WINDOW_NONE};
    }
    std::uint32_t active() { return firstOr0(world.words(world.connection().root(), "_NET_ACTIVE_WINDOW")); }
    static std::uint32_t firstOr0(const std::vector<std::uint32_t>& words) { return words.empty() ? 0 : words[0]; }

    void showOverlay() {
        overlay.show();
        ASSERT_TRUE(becomes([&] { return covers(shieldColor) && shields.isActive(); }));
    }

    X11World world;
    X11Layers layers{world.connection(), world.runner().timers()};
    QtScreens screens{layers, world.runner().timers()};
    QQmlEngine engine;
    Content shieldContent{engine, shieldColor};
    Content backdropContent{engine, backdropColor};
    QuickShields shields{shieldContent.content, layers, world.runner().timers()};
    QuickBackdrops backdrops{backdropContent.content, layers, world.runner().timers()};
    Motion motion;
    OverlayWindows overlay{{screens, shields, shields, motion, world.runner().timers()}};
};

TEST_F(CoversTest, theOverlayCoversEveryScreenAndTypingWorksAtOnce) {
    showOverlay();
    xdotool("type hello");
    EXPECT_TRUE(becomes([&] { return shieldContent.typed() == "hello"; })) << qPrintable(shieldContent.typed());
    overlay.hide();
    EXPECT_TRUE(becomes([&] { return colorAt(0, 0) != shieldColor && colorAt(3839, 479) != shieldColor; }));
}

TEST_F(CoversTest, aManagedWindowGetsNoKeyAndNoFocusWhileItShows) {
    auto& editor = world.launch("editor", {"--class", "editor"});
    world.userActivates(editor.window());
    EXPECT_TRUE(becomes([&] { return active() == editor.window(); }));
    showOverlay();
    world.userActivates(editor.window());
    settle();
    EXPECT_TRUE(becomes([&] { return shields.isActive() && covers(shieldColor); }));
    xdotool("type ab");
    EXPECT_TRUE(becomes([&] { return shieldContent.typed() == "ab"; }));
}

TEST_F(CoversTest, whatSwitchesBetweenProgramsDoesNotGetThrough) {
    auto& editor = world.launch("editor", {"--class", "editor"});
    world.launch("other", {"--class", "other"});
    world.userActivates(editor.window());
    EXPECT_TRUE(becomes([&] { return active() == editor.window(); }));
    showOverlay();
    for (const auto* keys : {"key alt+Tab", "key alt+F4", "key super", "key alt+Escape", "key ctrl+alt+d"})
        xdotool(keys);
    xdotool("type z");
    EXPECT_TRUE(becomes([&] { return shieldContent.typed().contains('z'); })) << "the keys before have come";
    EXPECT_TRUE(covers(shieldColor));
    EXPECT_TRUE(shields.isActive());
    EXPECT_TRUE(editor.isRunning());
}

TEST_F(CoversTest, aWindowThatComesAboveLosesItsPlaceAgain) {
    showOverlay();
    Intruder intruder;
    intruder.map();
    EXPECT_TRUE(becomes([&] { return covers(shieldColor); }));
    intruder.raise();
    EXPECT_TRUE(becomes([&] { return covers(shieldColor); }));
    intruder.takeFocus();
    EXPECT_TRUE(becomes([&] { return shields.isActive(); }));
    xdotool("type k");
    EXPECT_TRUE(becomes([&] { return shieldContent.typed() == "k"; }));
    EXPECT_EQ(intruder.takeKeys(), 0);
}

TEST_F(CoversTest, aFullScreenWindowIsCoveredWhetherItWasThereOrComesLater) {
    auto& game = world.launch("game", {"--class", "game"});
    constexpr std::uint32_t add = 1;
    const auto fill = [&] {
        world.connection().askManager(game.window(), world.connection().ewmh()._NET_WM_STATE, add,
                                      world.connection().ewmh()._NET_WM_STATE_FULLSCREEN);
        world.connection().flush();
    };
    fill();
    settle();
    showOverlay();
    fill();
    world.userActivates(game.window());
    settle();
    EXPECT_TRUE(becomes([&] { return covers(shieldColor) && shields.isActive(); }));
}

TEST_F(CoversTest, whoFightsForTheFrontKeepsNobodyBusyAndLosesInTheEnd) {
    showOverlay();
    Intruder intruder;
    intruder.fight();
    intruder.map();
    const auto before = std::clock();
    world.runner().run(2);
    const double seconds = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    EXPECT_LT(seconds, 0.5) << "of the processor's time, the other side's included";
    intruder.endFight();
    // By the server's order: one compositor loses sight of it in a quarrel like this.
    EXPECT_TRUE(becomes([&] { return placeOf(intruder.window()) < lowestPlaceOfOurs(); }));
}

TEST_F(CoversTest, theKeyboardIsTakenWhenWhoHadItForHimselfLetsItGo) {
    Intruder intruder;
    ASSERT_TRUE(intruder.grabKeyboard());
    overlay.show();
    EXPECT_TRUE(becomes([&] { return covers(shieldColor); }));
    EXPECT_FALSE(shields.isActive());
    world.runner().run(1.2); // all that looks for it by the clock has looked
    EXPECT_FALSE(shields.isActive());
    intruder.letKeyboardGo();
    EXPECT_TRUE(becomes([&] { return shields.isActive(); }));
    xdotool("type q");
    EXPECT_TRUE(becomes([&] { return shieldContent.typed() == "q"; }));
    EXPECT_FALSE(intruder.grabKeyboard()) << "it is ours now";
}

TEST_F(CoversTest, whoWasActiveHasTheFocusAgainAfterwards) {
    auto& editor = world.launch("editor", {"--class", "editor"});
    world.userActivates(editor.window());
    EXPECT_TRUE(becomes([&] { return active() == editor.window(); }));
    settle();
    showOverlay();
    overlay.hide();
    EXPECT_TRUE(becomes([&] { return focused() == editor.window(); }));
    settle();
    EXPECT_EQ(focused(), editor.window());
}

TEST_F(CoversTest, theKeyboardIsFreeAfterwards) {
    showOverlay();
    overlay.hide();
    settle();
    Intruder intruder;
    EXPECT_TRUE(intruder.grabKeyboard());
}

TEST_F(CoversTest, aScreenThatComesOrGoesIsCoveredAsWell) {
    showOverlay();
    unplug("C");
    EXPECT_TRUE(becomes([&] { return colorAt(3300, 100) != shieldColor; }));
    EXPECT_TRUE(becomes([&] { return colorAt(100, 100) == shieldColor && shields.isActive(); }));
    plug(third);
    EXPECT_TRUE(becomes([&] { return covers(shieldColor) && shields.isActive(); }));
    xdotool("type r");
    EXPECT_TRUE(becomes([&] { return shieldContent.typed() == "r"; }));
}

TEST_F(CoversTest, whatComesWithAChangeOfTheScreensIsInFrontOfWhatFades) {
    motion.value.set(false);
    showOverlay();
    const auto before = ourWindows();
    unplug("C");
    const auto isNew = [&](xcb_window_t window) { return std::ranges::find(before, window) == before.end(); };
    EXPECT_TRUE(becomes([&] { return screenOfFocus() >= 0 && isNew(focused()); }));
    const auto windows = stack();
    const auto highestOfBefore =
        std::ranges::find_first_of(windows.rbegin(), windows.rend(), before.begin(), before.end());
    const auto lowestOfNew = std::ranges::find(windows, focused());
    EXPECT_TRUE(highestOfBefore == windows.rend() || highestOfBefore.base() <= lowestOfNew);
    plug(third);
    EXPECT_TRUE(becomes([&] { return covers(shieldColor) && shields.isActive(); }));
}

TEST_F(CoversTest, changesOfTheScreensAreToldOnceAllHasComeToRest) {
    VirtualTime time{Date{0}};
    QtScreens patient{layers, time};
    int changes = 0;
    const auto watch = patient.observeChanges([&] { ++changes; });
    showOverlay();
    unplug("C");
    EXPECT_TRUE(becomes([] { return QGuiApplication::screens().size() == 2; }));
    time.advance(0.19);
    plug(third);
    EXPECT_TRUE(becomes([] { return QGuiApplication::screens().size() == 3; }));
    time.advance(0.19);
    EXPECT_EQ(changes, 0);
    time.advance(0.02);
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(patient.frames(), SizeIs(3));
    EXPECT_TRUE(becomes([&] { return covers(shieldColor) && shields.isActive(); }));
}

TEST_F(CoversTest, theKeyboardIsOnTheScreenWhereTheUserWorks) {
    auto& editor = world.launch("editor", {"--class", "editor"});
    world.userActivates(editor.window());
    EXPECT_TRUE(becomes([&] { return active() == editor.window(); }));
    xdotool(QString{"windowmove --sync %1 2200 200"}.arg(editor.window()));
    settle();
    showOverlay();
    EXPECT_EQ(screenOfFocus(), 1);
    overlay.hide();
    EXPECT_TRUE(becomes([&] { return focused() == editor.window(); }));
    xdotool(QString{"windowmove --sync %1 100 200"}.arg(editor.window()));
    settle();
    showOverlay();
    EXPECT_EQ(screenOfFocus(), 0);
}

TEST_F(CoversTest, aFadeEndsWithTheWindowsAndLeavesNone) {
    motion.value.set(false);
    overlay.show();
    EXPECT_TRUE(becomes([&] { return covers(shieldColor) && shields.isActive(); }));
    const auto windows = ourWindows();
    ASSERT_THAT(windows, SizeIs(3));
    const auto opacity = [&](xcb_window_t window) { return firstOr0(world.words(window, "_NET_WM_WINDOW_OPACITY")); };
    const auto areOpaque = [&] {
        return std::ranges::all_of(windows, [&](auto window) { return opacity(window) == UINT32_MAX; });
    };
    EXPECT_TRUE(becomes(areOpaque));
    overlay.hide();
    EXPECT_FALSE(overlay.isShown());
    EXPECT_TRUE(becomes([&] { return opacity(windows[0]) < UINT32_MAX / 2; }));
    EXPECT_TRUE(becomes([&] { return ourWindows().empty() && QGuiApplication::allWindows().empty(); }));
}

TEST_F(CoversTest, nothingIsSeenOfAWindowBeforeItIsPainted) {
    Intruder white;
    white.map();
    EXPECT_TRUE(becomes([&] { return covers(0xffffff); }));
    overlay.show();
    EXPECT_TRUE(covers(0xffffff)) << "what was there before is still seen";
    for (const auto window : ourWindows())
        EXPECT_EQ(firstOr0(world.words(window, "_NET_WM_WINDOW_OPACITY")), 0U);
    EXPECT_TRUE(becomes([&] { return covers(shieldColor); }));
    for (const auto window : ourWindows())
        EXPECT_EQ(firstOr0(world.words(window, "_NET_WM_WINDOW_OPACITY")), UINT32_MAX);
}

TEST_F(CoversTest, aClickOnTheOverlayMayHideIt) {
    showOverlay();
    QObject::connect(&shieldContent.model, &QQmlPropertyMap::valueChanged, &shieldContent.model,
                     [this] { overlay.hide(); });
    xdotool("mousemove 300 500 click 1");
    EXPECT_TRUE(becomes([&] { return ourWindows().empty() && QGuiApplication::allWindows().empty(); }));
    EXPECT_FALSE(overlay.isShown());
}

TEST_F(CoversTest, nobodyClosesAWindowOfTheOverlay) {
    showOverlay();
    for (auto* window : QGuiApplication::topLevelWindows())
        EXPECT_FALSE(window->close());
    EXPECT_TRUE(covers(shieldColor));
}

class BackdropTest : public CoversTest {
protected:
    ~BackdropTest() override {
        backdrop.isVisible = false;
        backdrop.hide();
        settle();
    }

    void showBackdrop() {
        backdrop.isVisible = true;
        backdrop.show(BackdropCover::Appearing::animated);
        ASSERT_TRUE(becomes([&] { return shows(backdropColor, 1000, 1000) && shows(backdropColor, 3837, 477); }));
        settle();
    }
    WindowProgram& launchActive(const std::string& name) {
        auto& program = world.launch(name, {"--class", name});
        world.userActivates(program.window());
        EXPECT_TRUE(becomes([&] { return active() == program.window(); }));
        settle();
        return program;
    }
    bool isSeen(const WindowProgram& program) { return middleShows(0xffffff, program); }
    bool isBehind(const WindowProgram& program) { return middleShows(backdropColor, program); }
    /// Which colour is seen in the middle of a window's place.
    bool middleShows(std::uint32_t color, const WindowProgram& program) {
        auto* const connection = world.connection().get();
        const auto cookie =
            xcb_translate_coordinates(connection, program.window(), world.connection().root(), 160, 100);
        const X11Reply<xcb_translate_coordinates_reply_t> place{
            xcb_translate_coordinates_reply(connection, cookie, nullptr)};
        return place && shows(color, place->dst_x, place->dst_y);
    }
    std::string log() { return files.contents[std::filesystem::path{"/data"} / EventLog::fileName]; }

    MemoryFiles files;
    SimulatedDesktop machine{Date{0}, files};
    Appearance appearance;
    AppData data{JSONStore{"/data", files},
                 AppData::Seams{machine.time, machine.time, machine.random, machine.relay, appearance}};
    BackdropWindows backdrop{{screens, backdrops, motion, data}};
};

TEST_F(BackdropTest, itLiesAboveTheDesktopAndBelowEveryOrdinaryWindow) {
    auto& icons = world.launchPart("icons", {"--type", "desktop"});
    auto& panel = world.launchPart("panel", {"--type", "dock"});
    auto& editor = launchActive("editor");
    showBackdrop();
    EXPECT_TRUE(covers(backdropColor));
    EXPECT_TRUE(isSeen(editor));
    EXPECT_THAT(log(), ::testing::EndsWith("backdrop shown windows=3 coversScreens=true\n"));
    editor.quit();
    settle();
    EXPECT_TRUE(becomes([&] { return isSeen(panel); })) << "a panel stays in front";
    panel.quit();
    EXPECT_TRUE(becomes([&] { return isBehind(icons); }));
    EXPECT_TRUE(icons.isRunning());
}

TEST_F(BackdropTest, aWindowThatIsOpenedOverItIsSeen) {
    showBackdrop();
    auto& editor = launchActive("editor");
    EXPECT_TRUE(becomes([&] { return isSeen(editor); }));
}

TEST_F(BackdropTest, theFirstClickReachesItsButtonAndNothingElseChanges) {
    auto& editor = launchActive("editor");
    std::vector<std::string> activations;
    const auto watch = world.workspace().observeActivations([&](const Workspace::Application& application) {
        activations.push_back(application->bundleIdentifier().value_or("none"));
    });
    showBackdrop();
    xdotool("mousemove 600 900 click 1");
    EXPECT_TRUE(becomes([&] { return backdropContent.clicks() == 1; }));
    settle();
    EXPECT_EQ(active(), editor.window()) << "it takes no activation";
    EXPECT_EQ(world.workspace().frontmostApplication()->bundleIdentifier(), "editor");
    EXPECT_THAT(activations, IsEmpty());
    EXPECT_TRUE(isSeen(editor)) << "nor does it come to the front";
    xdotool("mousemove 2000 900 click 1");
    EXPECT_TRUE(becomes([&] { return backdropContent.clicks() == 2; })) << "on another screen";
}

TEST_F(BackdropTest, itStandsInNoListAndIsNoApplicationInFront) {
    showBackdrop();
    xdotool("key alt+Tab");
    settle();
    EXPECT_EQ(world.workspace().frontmostApplication()->bundleIdentifier(), "com.apple.finder");
    EXPECT_EQ(world.application(X11World::ownPID())->activationPolicy(), ActivationPolicy::accessory);
    auto& editor = launchActive("editor");
    xdotool("key alt+Tab");
    settle();
    EXPECT_EQ(active(), editor.window());
}

TEST_F(BackdropTest, itIsOnEveryDesktop) {
    xdotool("set_num_desktops 2");
    showBackdrop();
    xdotool("set_desktop 1");
    settle();
    EXPECT_TRUE(becomes([&] { return covers(backdropColor); }));
    xdotool("set_desktop 0");
    EXPECT_TRUE(becomes([&] { return covers(backdropColor); }));
}

TEST_F(BackdropTest, aDesktopThatComesLaterOrForwardIsBehindIt) {
    showBackdrop();
    auto& icons = world.launchPart("icons", {"--type", "desktop"});
    settle();
    EXPECT_TRUE(becomes([&] { return isBehind(icons); }));
    constexpr std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(world.connection().get(), icons.window(), XCB_CONFIG_WINDOW_STACK_MODE, &above);
    world.connection().flush();
    settle();
    EXPECT_TRUE(becomes([&] { return isBehind(icons); })) << "also where it comes forward";
    world.userActivates(icons.window());
    settle();
    EXPECT_TRUE(becomes([&] { return isBehind(icons); })) << "also where it becomes active";
    backdrop.hide();
    EXPECT_TRUE(becomes([&] { return isSeen(icons); }));
}

TEST_F(BackdropTest, aScreenThatComesOrGoesIsCoveredAsWell) {
    showBackdrop();
    unplug("C");
    EXPECT_TRUE(becomes([&] { return !shows(backdropColor, 3300, 100); }));
    plug(third);
    EXPECT_TRUE(becomes([&] { return covers(backdropColor); }));
}

TEST_F(BackdropTest, theOverlayIsInFrontOfItAndItIsThereAfterwards) {
    showBackdrop();
    showOverlay();
    overlay.hide();
    EXPECT_TRUE(becomes([&] { return covers(backdropColor); }));
}

} // namespace
} // namespace velmorin

int main(int count, char** words) {
    ::testing::InitGoogleMock(&count, words);
    // The desktop of these tests has one output, which the first monitor holds.
    velmorin::plug("*A 1920/508x1080/286+0+0 screen");
    velmorin::plug("B 1280/339x1024/271+1920+0 none");
    velmorin::plug(velmorin::third);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application{count, words};
    QGuiApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
