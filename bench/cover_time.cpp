// How long the overlay takes from `show` to its picture on every screen, and to the keyboard. Needs a desktop:
//
//     python3 tests/desktop/desktop.py --size 3840x1080 -- build/release/bin/cover_time [ROUNDS [FILE.qml]]
//
// The desktop is cut into three screens. FILE.qml is another content, with the properties isPrimary and unit.

#include "app/platform/linux/loop/LoopTimers.h"
#include "app/platform/linux/loop/MainLoop.h"
#include "app/platform/linux/x11/X11Layers.h"
#include "app/platform/qt/QtScreens.h"
#include "app/platform/qt/QuickShields.h"
#include "app/shell/OverlayWindows.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QScreen>
#include <QUrl>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

namespace velmorin {
namespace {

class NoMotion final : public MotionPreference {
public:
    const Observable<bool>& reducesMotion() const override { return m_reduces; }

private:
    Observable<bool> m_reduces{true};
};

double now() {
    using Clock = std::chrono::steady_clock;
    return std::chrono::duration<double, std::milli>{Clock::now().time_since_epoch()}.count();
}

void print(const char* name, std::vector<double> times) {
    std::ranges::sort(times);
    std::printf("%-28s median %6.1f ms, best %6.1f, worst %6.1f, of %zu\n", name, times[times.size() / 2],
                times.front(), times.back(), times.size());
}

/// Lets the toolkit's loop run for a while, and with it all that is to be deleted.
void rest(Timers& timers, double seconds) {
    QEventLoop loop;
    const auto end = timers.after(seconds, [&] { loop.quit(); });
    loop.exec();
}

void measure(int rounds, const QUrl& picture) {
    MainLoop mainLoop;
    LoopTimers timers;
    const auto connection = X11Connection::open(mainLoop);
    X11Layers layers{*connection, timers};
    QtScreens screens{layers, timers};
    QQmlEngine engine;
    QuickContent content{engine, picture, [](const CoverContent& made) {
                             return QVariantMap{{"isPrimary", made.isPrimary}, {"unit", made.unit}};
                         }};
    QuickShields shields{content, layers, timers};
    NoMotion motion;
    OverlayWindows overlay{{screens, shields, shields, motion, timers}};
    rest(timers, 0.5);

    std::vector<double> asked, painted, busy;
    for (int round = 0; round < rounds; ++round) {
        const auto startOfWork = std::clock();
        const double start = now();
        overlay.show();
        asked.push_back(now() - start);
        std::size_t left = 0;
        QEventLoop loop;
        QObject receiver;
        for (auto* window : QGuiApplication::topLevelWindows()) {
            auto* const quick = qobject_cast<QQuickWindow*>(window);
            if (quick == nullptr || !quick->isVisible()) continue;
            ++left;
            QObject::connect(
                quick, &QQuickWindow::frameSwapped, &receiver,
                [&] {
                    if (--left == 0) loop.quit();
                },
                Qt::SingleShotConnection);
        }
        loop.exec();
        // What was painted has come to the server when it answers, and the keyboard is there.
        const bool isActive = shields.isActive();
        QGuiApplication::sync();
        painted.push_back(now() - start);
        busy.push_back(1000.0 * static_cast<double>(std::clock() - startOfWork) / CLOCKS_PER_SEC);
        if (!isActive) std::printf("round %d: the keyboard is elsewhere\n", round);
        rest(timers, 0.1);
        overlay.hide();
        rest(timers, 0.1);
    }
    std::printf("first time                   %.1f ms, of which this program works %.1f\n", painted.front(),
                busy.front());
    print("show() returns", asked);
    print("every screen is painted", painted);
    print("of which this program works", busy);
}

} // namespace
} // namespace velmorin

int main(int count, char** words) {
    QProcess::execute("xrandr", {"--setmonitor", "*A", "1920/508x1080/286+0+0", "screen"});
    QProcess::execute("xrandr", {"--setmonitor", "B", "1280/339x1024/271+1920+0", "none"});
    QProcess::execute("xrandr", {"--setmonitor", "C", "640/170x480/127+3200+0", "none"});
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application{count, words};
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const int rounds = count > 1 ? std::max(1, std::atoi(words[1])) : 20;
    const auto picture = count > 2 ? QString::fromLocal8Bit(words[2]) : QStringLiteral(VELMORIN_COVER_PICTURE);
    velmorin::measure(rounds, QUrl::fromLocalFile(picture));
    return 0;
}
