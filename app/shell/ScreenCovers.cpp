#include "app/shell/ScreenCovers.h"

#include <algorithm>
#include <utility>

namespace velmorin {

double coverUnit(const Rectangle& screen) {
    constexpr double baseHeight = 1000;
    constexpr double largest = 1.5;
    return std::clamp(screen.height / baseHeight, 1.0, largest);
}

void LeavingCovers::fadeOut(CoverWindowList windows, double seconds) {
    for (auto& window : windows) {
        auto* const leaving = m_windows.emplace_back(std::move(window)).get();
        leaving->fade(0, seconds, [this, leaving] {
            leaving->orderOut();
            drop(leaving);
        });
    }
}

void LeavingCovers::orderOut(const CoverWindowList& windows) {
    for (const auto& window : windows)
        window->orderOut();
}

void LeavingCovers::drop(const CoverWindow* window) {
    const auto found = std::ranges::find(m_windows, window, &std::unique_ptr<CoverWindow>::get);
    // It goes once it stands in no list any more.
    const auto held = std::move(*found);
    m_windows.erase(found);
}

} // namespace velmorin
