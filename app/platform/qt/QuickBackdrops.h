#pragma once

#include "app/platform/qt/QuickCovers.h"
#include "app/seams/Timers.h"

namespace velmorin {

/// Windows just above the desktop's own, below all others, on all desktops and in no list, that never take the keyboard
/// and answer the first click. Main thread.
class QuickBackdrops final : public QuickCovers {
public:
    /// All must outlive this.
    QuickBackdrops(QuickContent& content, DesktopLayers& layers, Timers& timers);

private:
    Qt::WindowFlags flags() const override;
    void prepare(QQuickWindow& window) const override;
    void shownChanged(QuickCoverWindow* key) override;

    Timers& m_timers;
    Cancellable m_arranging;
    Cancellable m_back;
};

} // namespace velmorin
