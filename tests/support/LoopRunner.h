#pragma once

#include "app/platform/linux/loop/LoopTimers.h"
#include "app/platform/linux/loop/MainLoop.h"

#include <functional>

namespace velmorin {

/// Lets calls come in on the main loop of a Linux desktop, for tests that wait in earnest.
class LoopRunner {
public:
    /// Long enough for a machine that has much else to do; only a test that fails waits this long.
    static constexpr double patience = 60.0;

    MainLoop& loop() { return m_loop; }
    Timers& timers() { return m_timers; }

    void run(double seconds) {
        const auto end = m_timers.after(seconds, [this] { m_loop.quit(0); });
        m_loop.run();
    }

    /// Makes the calls that are due by now, and those that these ask for at once.
    void settle() {
        constexpr int rounds = 5;
        for (int round = 0; round < rounds; ++round)
            run(0);
    }

    /// Lets calls come in until a condition holds, which is asked for after a short while again and again. False when
    /// it does not hold within `limit` seconds.
    bool runUntil(const std::function<bool()>& condition, double limit = patience) {
        constexpr double step = 0.005;
        bool isOver = false;
        const auto end = m_timers.after(limit, [&] { isOver = true; });
        while (!condition()) {
            if (isOver) return false;
            run(step);
        }
        return true;
    }

private:
    MainLoop m_loop;
    LoopTimers m_timers;
};

} // namespace velmorin
