#include "app/shell/BackdropWindows.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

namespace velmorin {

namespace {

/// Seconds.
constexpr double appearingTime = 0.6;
constexpr double disappearingTime = 0.4;

} // namespace

BackdropWindows::BackdropWindows(const Seams& seams)
    : m_seams{seams}, m_screenObserver{m_seams.screens.observeChanges([this] { rebuildIfDisplaysChanged(); })} {}

void BackdropWindows::show(Appearing appearing) {
    m_shownScreenFrames = m_seams.screens.frames();
    const auto primary = m_seams.screens.main().value_or(0);
    const bool isAnimated = appearing == Appearing::animated && !*m_seams.motion.reducesMotion();
    for (std::size_t i = 0; i < m_shownScreenFrames.size(); ++i) {
        const auto& frame = m_shownScreenFrames[i];
        auto& window = *m_windows.emplace_back(m_seams.windows.make(frame, {i == primary, coverUnit(frame)}));
        if (isAnimated) window.setOpacity(0);
        window.orderFront();
    }
    if (isAnimated)
        for (const auto& window : m_windows)
            window->fade(1, appearingTime, {});
    m_seams.data.log("backdrop shown windows=" + std::to_string(m_windows.size()) +
                     " coversScreens=" + (coversScreens() ? "true" : "false"));
}

void BackdropWindows::hide() {
    auto taken = std::exchange(m_windows, {});
    if (*m_seams.motion.reducesMotion()) {
        LeavingCovers::orderOut(taken);
    } else {
        m_leaving.fadeOut(std::move(taken), disappearingTime);
    }
}

void BackdropWindows::rebuildIfDisplaysChanged() {
    if (!isVisible || m_seams.screens.frames() == m_shownScreenFrames) return;
    LeavingCovers::orderOut(m_windows);
    m_windows.clear();
    show(Appearing::atOnce);
}

/// Whether each window lies on its screen, as the screens are by now.
bool BackdropWindows::coversScreens() const {
    const auto frames = m_seams.screens.frames();
    const auto count = std::min(frames.size(), m_windows.size());
    for (std::size_t i = 0; i < count; ++i)
        if (m_windows[i]->frame() != frames[i]) return false;
    return true;
}

} // namespace velmorin
