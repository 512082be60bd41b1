// The windows that cover the screens, among those of other programs: three screens on one X server.

#include "app/platform/linux/x11/X11Layers.h"
#include "app/platform/qt/QtScreens.h"
#include "app/platform/qt/QuickBackdrops.h"
#include "app/platform/qt/QuickShields.h"
#include "app/shell/OverlayWindows.h"
#include "tests/desktop/Intruder.h"
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
#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
    /// Whether one colour is what all three screens show, also at their edges.
    bool covers(std::uint32_t color) {
        return colorAt(0, 0) == color && colorAt(1900, 1079) == color && colorAt(1920, 0) == color &&
               colorAt(3199, 1023) == color && colorAt(3200, 0) == color && colorAt(3839, 479) == color;
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
    EXPECT_TRUE(becomes([&] { return covers(shieldColor); }));
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
