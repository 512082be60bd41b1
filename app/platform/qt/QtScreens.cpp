#include "app/platform/qt/QtScreens.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPointF>
#include <QRectF>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <iterator>
#include <utility>

namespace velmorin {

namespace {

/// Seconds without a further change after which an arrangement counts as settled.
constexpr double restTime = 0.2;

/// The screen at a point in the server's own unit; null where there is none.
QScreen* screenAtNative(const QPointF& point) {
    for (auto* screen : QGuiApplication::screens()) {
        const auto frame = screen->geometry();
        if (QRectF{QPointF{frame.topLeft()}, QSizeF{frame.size()} * screen->devicePixelRatio()}.contains(point))
            return screen;
    }
    return nullptr;
}

} // namespace

Rectangle toRectangle(const QRect& rect) {
    return {static_cast<double>(rect.x()), static_cast<double>(rect.y()), static_cast<double>(rect.width()),
            static_cast<double>(rect.height())};
}

QRect toQRect(const Rectangle& rectangle) {
    return QRectF{rectangle.x, rectangle.y, rectangle.width, rectangle.height}.toRect();
}

QScreen* screenOf(const Rectangle& frame) {
    const auto screens = QGuiApplication::screens();
    const auto found = std::ranges::find(screens, toQRect(frame), &QScreen::geometry);
    return found == screens.end() ? QGuiApplication::primaryScreen() : *found;
}

QtScreens::QtScreens(const DesktopLayers& layers, Timers& timers) : m_layers{layers}, m_timers{timers} {
    for (auto* screen : QGuiApplication::screens())
        follow(screen);
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &m_receiver, [this](QScreen* screen) {
        follow(screen);
        settle();
    });
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &m_receiver, [this] { settle(); });
    QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &m_receiver, [this] { settle(); });
}

std::vector<Rectangle> QtScreens::frames() const {
    const auto screens = QGuiApplication::screens();
    std::vector<Rectangle> frames;
    std::ranges::transform(screens, std::back_inserter(frames),
                           [](const QScreen* screen) { return toRectangle(screen->geometry()); });
    return frames;
}

std::optional<std::size_t> QtScreens::main() const {
    QScreen* screen = nullptr;
    if (const auto* window = QGuiApplication::focusWindow()) screen = window->screen();
    const auto active = screen == nullptr ? m_layers.activeFrame() : std::nullopt;
    if (active) screen = screenAtNative({active->x + active->width / 2, active->y + active->height / 2});
    if (screen == nullptr) screen = QGuiApplication::screenAt(QCursor::pos());
    const auto screens = QGuiApplication::screens();
    const auto place = screens.indexOf(screen);
    return place < 0 ? std::nullopt : std::optional{static_cast<std::size_t>(place)};
}

Cancellable QtScreens::observeChanges(std::function<void()> call) {
    return m_watchers.add(std::move(call));
}

void QtScreens::follow(QScreen* screen) {
    QObject::connect(screen, &QScreen::geometryChanged, &m_receiver, [this] { settle(); });
}

void QtScreens::settle() {
    m_settling = m_timers.after(restTime, [this] { m_watchers.notify(); });
}

} // namespace velmorin
