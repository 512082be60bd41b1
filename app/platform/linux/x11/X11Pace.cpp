#include "app/platform/linux/x11/X11Pace.h"

#include <utility>

namespace velmorin {

namespace {

/// So many rounds are answered at once, in this many seconds.
constexpr int burst = 25;
constexpr double memory = 1.0;

/// The seconds between two answers after that.
constexpr double pause = 0.05;

} // namespace

X11Pace::X11Pace(Timers& timers, std::function<void()> act) : m_timers{timers}, m_act{std::move(act)} {}

void X11Pace::ask() {
    if (m_rounds < burst) return m_act();
    if (m_later) return;
    m_later = m_timers.after(pause, [this] {
        m_later = {};
        m_act();
    });
}

void X11Pace::count() {
    ++m_rounds;
    if (m_calm) return;
    m_calm = m_timers.after(memory, [this] {
        m_calm = {};
        m_rounds = 0;
    });
}

} // namespace velmorin
