#include "app/platform/qt/QuickCoverWindow.h"

#include "app/platform/qt/QtScreens.h"

#include <cmath>
#include <utility>

namespace velmorin {

QuickCoverWindow::QuickCoverWindow(QuickCovers& covers, std::unique_ptr<QQuickWindow> window)
    : m_covers{covers}, m_window{window.release()} {
    applyOpacity();
    const auto painted = [this] {
        if (!std::exchange(m_isPainted, true)) applyOpacity();
    };
    QObject::connect(m_window, &QQuickWindow::frameSwapped, m_window, painted);
}

QuickCoverWindow::~QuickCoverWindow() {
    endFade();
    m_window->disconnect();
    m_window->hide();
    m_covers.drop(*this);
}

Rectangle QuickCoverWindow::frame() const {
    return toRectangle(m_window->geometry());
}

void QuickCoverWindow::setOpacity(double opacity) {
    m_opacity = opacity;
    applyOpacity();
}

void QuickCoverWindow::fade(double opacity, double seconds, std::function<void()> completion) {
    endFade();
    m_completion = std::move(completion);
    constexpr double milliseconds = 1000;
    m_fade = new QVariantAnimation{m_window};
    m_fade->setStartValue(m_opacity);
    m_fade->setEndValue(opacity);
    m_fade->setDuration(static_cast<int>(std::lround(seconds * milliseconds)));
    QObject::connect(m_fade, &QVariantAnimation::valueChanged, m_window,
                     [this](const QVariant& value) { setOpacity(value.toDouble()); });
    QObject::connect(m_fade, &QVariantAnimation::finished, m_window, [this] {
        const auto call = std::exchange(m_completion, {});
        if (call) call(); // which may end this
    });
    m_fade->start();
}

void QuickCoverWindow::endFade() {
    if (m_fade == nullptr) return;
    m_fade->disconnect();
    m_fade->stop();
    m_fade->deleteLater();
    m_fade = nullptr;
    m_completion = {};
}

void QuickCoverWindow::orderFront() {
    m_window->show();
    m_covers.order(*this, QuickCovers::Ordering::front);
}

void QuickCoverWindow::makeKeyAndOrderFront() {
    m_window->show();
    m_covers.order(*this, QuickCovers::Ordering::key);
}

void QuickCoverWindow::orderOut() {
    m_window->hide();
    m_covers.order(*this, QuickCovers::Ordering::out);
}

void QuickCoverWindow::applyOpacity() {
    m_window->setOpacity(m_isPainted ? m_opacity : 0);
}

} // namespace velmorin
