#pragma once

#include "app/seams/CoverWindow.h"
#include "core/geometry/PanelPlacement.h"

#include <memory>
#include <vector>

namespace velmorin {

using CoverWindowList = std::vector<std::unique_ptr<CoverWindow>>;

/// The factor of all sizes on a screen: its height by a thousand, from 1.0, so that a small screen keeps the base
/// sizes, to 1.5.
double coverUnit(const Rectangle& screen);

/// Windows on their way off the screen. What is shown meanwhile is none of them. Main thread.
class LeavingCovers {
public:
    LeavingCovers() = default;
    LeavingCovers(const LeavingCovers&) = delete;
    LeavingCovers& operator=(const LeavingCovers&) = delete;

    /// Lets windows fade in this many seconds and takes each off the screen then.
    void fadeOut(CoverWindowList windows, double seconds);
    /// Takes windows off the screen at once.
    static void orderOut(const CoverWindowList& windows);

private:
    void drop(const CoverWindow* window);

    CoverWindowList m_windows;
};

} // namespace velmorin
