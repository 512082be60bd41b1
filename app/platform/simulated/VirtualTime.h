#pragma once

#include "app/seams/Clock.h"
#include "app/seams/Timers.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace velmorin {

/// The wall clock and the timers of a simulated desktop. Time passes only when the control side lets it. Timers fire by
/// deadline, equal ones in the order in which they were scheduled; a repeating one is scheduled anew just before it
/// calls.
class VirtualTime final : public Clock, public Timers {
public:
    explicit VirtualTime(Date start) : m_start{start} {}

    Date now() const override { return m_start + (m_elapsed + m_wallOffset); }
    Cancellable after(double seconds, std::function<void()> call) override;
    Cancellable every(double seconds, std::function<void()> call) override;

    /// Has a call made once the present one has ended, before any timer. What arises then is delivered in this order.
    Cancellable post(std::function<void()> call);
    /// The same, before everything else that is posted.
    void postNext(std::function<void()> call);

    // The control side.

    /// Seconds since the start, whatever the wall clock was set to.
    double elapsed() const { return m_elapsed; }
    /// The moment, in seconds since the start, at which the next timer is due; absent without timers.
    std::optional<double> nextDeadline() const;
    /// Makes the calls that are posted and fires the timers that are due, until none is left. Throws std::runtime_error
    /// when they find no end.
    void settle();
    /// Lets time pass, firing every timer on its way.
    void advance(double seconds) { advanceUntil(m_elapsed + seconds); }
    /// The same up to a moment in seconds since the start, which has not passed yet.
    void advanceUntil(double moment);
    /// Lets time pass with the machine asleep: nothing fires until it wakes; then what is overdue does, a repeating
    /// timer once.
    void sleep(double seconds);
    /// Moves the wall clock, and no timer with it.
    void setClock(double by) { m_wallOffset += by; }

private:
    struct Timer {
        std::function<void()> call;
        std::optional<double> period; ///< seconds; absent for one that fires once
        std::uint64_t number = 0;     ///< stays the same when it is scheduled anew
    };
    using Place = std::pair<double, std::uint64_t>; ///< deadline, and the order of scheduling

    struct State {
        std::map<Place, Timer> timers;
        std::map<std::uint64_t, Place> places; ///< of each timer by its number
        std::deque<std::pair<std::uint64_t, std::function<void()>>> posted;
        std::uint64_t count = 0;
    };

    Cancellable schedule(double deadline, Timer timer);
    void place(double deadline, Timer timer);
    bool makeNextCall(double moment);
    void fireNext();

    Date m_start;
    double m_elapsed = 0;
    double m_wallOffset = 0;
    std::shared_ptr<State> m_state = std::make_shared<State>();
};

} // namespace velmorin
