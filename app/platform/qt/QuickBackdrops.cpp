#include "app/platform/qt/QuickBackdrops.h"

#include "app/platform/qt/XcbHints.h"

namespace velmorin {

QuickBackdrops::QuickBackdrops(QuickContent& content, DesktopLayers& layers, Timers& timers)
    : QuickCovers{content, layers}, m_timers{timers} {}

Qt::WindowFlags QuickBackdrops::flags() const {
    return Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnBottomHint | Qt::WindowDoesNotAcceptFocus;
}

void QuickBackdrops::prepare(QQuickWindow& window) const {
    declareDesktopWindow(window);
}

void QuickBackdrops::shownChanged(QuickCoverWindow*) {
    m_back.cancel();
    if (shown().empty()) return m_arranging.cancel();
    // Once all of them are there.
    m_arranging = m_timers.after(0, [this] {
        const auto windows = shownNumbers();
        m_back = layers().keepBehind(windows);
    });
}

} // namespace velmorin
