#pragma once

#include "app/seams/Cancellable.h"
#include "app/seams/CoverWindow.h"
#include "app/seams/MotionPreference.h"
#include "app/seams/Presentation.h"
#include "app/seams/Screens.h"
#include "app/seams/Timers.h"
#include "app/shell/Covers.h"
#include "app/shell/ScreenCovers.h"
#include "core/geometry/PanelPlacement.h"

#include <vector>

namespace velmorin {

/// The shield: a window on every screen above everything, of which the one where the user works has the keyboard. A
/// new set is made for each time it is shown, and when the arrangement of the screens changes meanwhile. Main thread.
class OverlayWindows final : public OverlayCover {
public:
    /// All must outlive this.
    struct Seams {
        Screens& screens;
        CoverWindowFactory& windows;
        Presentation& presentation;
        const MotionPreference& motion;
        Timers& timers;
    };

    explicit OverlayWindows(const Seams& seams);
    OverlayWindows(const OverlayWindows&) = delete;
    OverlayWindows& operator=(const OverlayWindows&) = delete;

    void show() override;
    void hide() override;
    bool isShown() const override { return !m_windows.empty(); }

private:
    void rebuildIfVisible();
    void scheduleChecks();
    void checkIsActive();

    Seams m_seams;
    CoverWindowList m_windows;
    CoverWindow* m_keyWindow = nullptr; ///< one of them; null without a primary screen
    std::vector<Rectangle> m_shownScreenFrames;
    std::vector<Cancellable> m_checks;
    LeavingCovers m_leaving;
    Cancellable m_screenObserver;
};

} // namespace velmorin
