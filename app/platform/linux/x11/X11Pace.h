#pragma once

#include "app/seams/Timers.h"

#include <functional>

namespace velmorin {

/// How often something is done again that another program may undo each time: at once while that is seldom, and at a
/// quiet pace where it does not end, so that two who want the same never keep the machine busy. Main thread.
class X11Pace {
public:
    /// `timers` must outlive this.
    X11Pace(Timers& timers, std::function<void()> act);

    /// Has it done: now, or when it is time.
    void ask();
    /// It was undone once more.
    void count();

private:
    Timers& m_timers;
    std::function<void()> m_act;
    int m_rounds = 0;
    Cancellable m_calm; ///< until the rounds are forgotten
    Cancellable m_later;
};

} // namespace velmorin
