#pragma once

#include "app/platform/qt/QuickCovers.h"
#include "app/seams/Presentation.h"
#include "app/seams/Timers.h"

namespace velmorin {

/// Windows in front of everything, that no window manager knows of, and the keyboard held by one of them. Main thread.
class QuickShields final : public QuickCovers, public Presentation {
public:
    /// All must outlive this.
    QuickShields(QuickContent& content, DesktopLayers& layers, Timers& timers);

    void activate() override;
    bool isActive() const override;
    void setOptions(Options options) override;

private:
    Qt::WindowFlags flags() const override;
    void prepare(QQuickWindow&) const override {}
    void shownChanged(QuickCoverWindow* key) override;

    void arrange();
    void holdKeyboard();

    Timers& m_timers;
    Options m_options = Options::usual;
    QuickCoverWindow* m_key = nullptr; ///< one of those shown
    bool m_holdsKeyboard = false;
    Cancellable m_front;
    Cancellable m_nextTry; ///< for the keyboard, which another program may have for itself
};

} // namespace velmorin
