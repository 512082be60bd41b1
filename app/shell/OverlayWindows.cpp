#include "app/shell/OverlayWindows.h"

#include <array>
#include <cstddef>
#include <utility>

namespace velmorin {

namespace {

/// Seconds.
constexpr double appearing = 0.45;
constexpr double disappearing = 0.25;

/// When it is looked whether the keyboard is still ours, in seconds after the windows came: another program that is
/// just starting, or being hidden, may have taken it.
constexpr std::array checkTimes{0.15, 0.4, 0.8};

} // namespace

OverlayWindows::OverlayWindows(const Seams& seams)
    : m_seams{seams}, m_screenObserver{m_seams.screens.observeChanges([this] { rebuildIfVisible(); })} {}

void OverlayWindows::show() {
    m_shownScreenFrames = m_seams.screens.frames();
    const std::size_t primary = m_seams.screens.main().value_or(0);
    const bool isAnimated = !*m_seams.motion.reducesMotion();
    for (std::size_t i = 0; i < m_shownScreenFrames.size(); ++i) {
        const auto& frame = m_shownScreenFrames[i];
        auto& window = *m_windows.emplace_back(m_seams.windows.make(frame, {i == primary, coverUnit(frame)}));
        if (isAnimated) window.setOpacity(0);
        if (i != primary) window.orderFront();
    }
    m_seams.presentation.activate();
    m_seams.presentation.setOptions(Presentation::Options::locked);
    m_keyWindow = primary < m_windows.size() ? m_windows[primary].get() : nullptr;
    if (m_keyWindow != nullptr) m_keyWindow->makeKeyAndOrderFront();
    if (isAnimated)
        for (const auto& window : m_windows)
            window->fade(1, appearing, {});
    scheduleChecks();
}

void OverlayWindows::hide() {
    m_seams.presentation.setOptions(Presentation::Options::usual);
    m_checks.clear();
    m_keyWindow = nullptr;
    auto taken = std::exchange(m_windows, {});
    if (*m_seams.motion.reducesMotion()) {
        LeavingCovers::orderOut(taken);
    } else {
        m_leaving.fadeOut(std::move(taken), disappearing);
    }
}

void OverlayWindows::rebuildIfVisible() {
    if (m_windows.empty() || m_seams.screens.frames() == m_shownScreenFrames) return;
    hide();
    show();
}

void OverlayWindows::scheduleChecks() {
    for (const double seconds : checkTimes)
        m_checks.push_back(m_seams.timers.after(seconds, [this] { checkIsActive(); }));
}

void OverlayWindows::checkIsActive() {
    if (m_windows.empty() || m_seams.presentation.isActive()) return;
    m_seams.presentation.activate();
    if (m_keyWindow != nullptr) m_keyWindow->makeKeyAndOrderFront();
}

} // namespace velmorin
