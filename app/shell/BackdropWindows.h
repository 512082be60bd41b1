#pragma once

#include "app/engine/AppData.h"
#include "app/seams/Cancellable.h"
#include "app/seams/CoverWindow.h"
#include "app/seams/MotionPreference.h"
#include "app/seams/Screens.h"
#include "app/shell/Covers.h"
#include "app/shell/ScreenCovers.h"
#include "core/geometry/PanelPlacement.h"

#include <vector>

namespace velmorin {

/// The backdrop: an opaque window on every screen, just above the desktop's icons and below all ordinary windows, made
/// anew for each time it is shown, and when the arrangement of the screens changes meanwhile. It never takes the
/// keyboard. Main thread.
class BackdropWindows final : public BackdropCover {
public:
    /// All must outlive this.
    struct Seams {
        Screens& screens;
        CoverWindowFactory& windows;
        const MotionPreference& motion;
        const AppData& data;
    };

    explicit BackdropWindows(const Seams& seams);
    BackdropWindows(const BackdropWindows&) = delete;
    BackdropWindows& operator=(const BackdropWindows&) = delete;

    void show(Appearing appearing) override;
    void hide() override;

private:
    void rebuildIfDisplaysChanged();
    bool coversScreens() const;

    Seams m_seams;
    CoverWindowList m_windows;
    std::vector<Rectangle> m_shownScreenFrames;
    LeavingCovers m_leaving;
    Cancellable m_screenObserver;
};

} // namespace velmorin
