#pragma once

#include "app/seams/Cancellable.h"
#include "app/seams/DesktopLayers.h"
#include "app/seams/Observable.h"
#include "app/seams/Screens.h"
#include "app/seams/Timers.h"

#include <QObject>
#include <QRect>

class QScreen;

namespace velmorin {

/// A frame as the toolkit has it, in its own unit, and back.
Rectangle toRectangle(const QRect& rect);
QRect toQRect(const Rectangle& rectangle);

/// The screen with this frame; the primary one where there is none any more, null without screens.
QScreen* screenOf(const Rectangle& frame);

/// The screens as the toolkit tells, the desktop's primary one first. An arrangement that changes goes through several
/// short-lived ones, so a change is told once it has come to rest. Main thread.
class QtScreens final : public Screens {
public:
    /// Both must outlive this.
    QtScreens(const DesktopLayers& layers, Timers& timers);
    QtScreens(const QtScreens&) = delete;
    QtScreens& operator=(const QtScreens&) = delete;

    std::vector<Rectangle> frames() const override;
    /// That of the active window, of this program or another; without one, that of the pointer.
    std::optional<std::size_t> main() const override;
    [[nodiscard]] Cancellable observeChanges(std::function<void()> call) override;

private:
    void follow(QScreen* screen);
    void settle();

    const DesktopLayers& m_layers;
    Timers& m_timers;
    Watchers m_watchers;
    Cancellable m_settling;
    QObject m_receiver; ///< of the toolkit's signals
};

} // namespace velmorin
