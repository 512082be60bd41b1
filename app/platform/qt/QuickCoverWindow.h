#pragma once

#include "app/platform/qt/QuickCovers.h"
#include "app/seams/CoverWindow.h"

#include <QPointer>
#include <QQuickWindow>
#include <QVariantAnimation>
#include <functional>

namespace velmorin {

/// A window of Qt Quick that covers a screen. Nothing of it is seen before its first picture is painted. Main thread.
class QuickCoverWindow final : public CoverWindow {
public:
    /// The covers must outlive this. `window` has its content, place and flags.
    QuickCoverWindow(QuickCovers& covers, std::unique_ptr<QQuickWindow> window);
    QuickCoverWindow(const QuickCoverWindow&) = delete;
    QuickCoverWindow& operator=(const QuickCoverWindow&) = delete;
    ~QuickCoverWindow() override;

    Rectangle frame() const override;
    void setOpacity(double opacity) override;
    void fade(double opacity, double seconds, std::function<void()> completion) override;
    void orderFront() override;
    void makeKeyAndOrderFront() override;
    void orderOut() override;

    QQuickWindow& window() const { return *m_window; }

private:
    void endFade();
    void applyOpacity();

    QuickCovers& m_covers;
    QQuickWindow* m_window; ///< destroyed later than this: one of its own events may have led here
    double m_opacity = 1;
    bool m_isPainted = false;
    QVariantAnimation* m_fade = nullptr; ///< destroyed later, like the window
    std::function<void()> m_completion;
};

} // namespace velmorin
