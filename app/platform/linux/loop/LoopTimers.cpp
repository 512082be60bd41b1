#include "app/platform/linux/loop/LoopTimers.h"

#include <algorithm>
#include <glib.h>
#include <map>
#include <utility>

namespace velmorin {

namespace {

using Microseconds = std::int64_t;

/// No timer needs more, and the clock can count this far.
constexpr double longestDelay = 1e9;

Microseconds microseconds(double seconds) {
    // Written so that what is no number counts as zero.
    return static_cast<Microseconds>((seconds > 0 ? std::min(seconds, longestDelay) : 0.0) * G_USEC_PER_SEC);
}

} // namespace

struct LoopTimers::State {
    /// Where a timer stands in the order of calls: those of one moment come as they were asked for.
    using Place = std::pair<Microseconds, std::uint64_t>;
    struct Timer {
        std::shared_ptr<std::function<void()>> call;
        Microseconds period = 0; ///< none: it calls once
        std::uint64_t number = 0;
    };

    std::map<Place, Timer> timers;
    std::map<std::uint64_t, Place> places; ///< by the timer's number
    std::uint64_t count = 0;
    GSource* source = nullptr;

    void place(Microseconds deadline, Timer timer) {
        const Place place{deadline, ++count};
        places[timer.number] = place;
        timers.emplace(place, std::move(timer));
        awaitNext();
    }

    void erase(std::uint64_t number) {
        const auto found = places.extract(number);
        if (found.empty()) return;
        timers.erase(found.mapped());
        awaitNext();
    }

    void awaitNext() const { g_source_set_ready_time(source, timers.empty() ? -1 : timers.begin()->first.first); }

    /// Calls what is due, but nothing that was asked for meanwhile: others in the loop want their turn too.
    void fire(Microseconds now) {
        const auto last = count;
        while (source != nullptr) {
            const auto isDue = [&](const auto& entry) { return entry.first.second <= last; };
            const auto end = timers.upper_bound({now, UINT64_MAX});
            const auto next = std::find_if(timers.begin(), end, isDue);
            if (next == end) break;
            callNext(next, now);
        }
    }

    void callNext(std::map<Place, Timer>::iterator next, Microseconds now) {
        auto entry = timers.extract(next);
        Timer timer = std::move(entry.mapped());
        const auto call = timer.call;
        if (timer.period > 0) {
            // What was missed is not made up for.
            const Microseconds kept = entry.key().first + timer.period;
            place(kept > now ? kept : now + timer.period, std::move(timer));
        } else {
            places.erase(timer.number);
            awaitNext();
        }
        (*call)();
    }
};

LoopTimers::LoopTimers() : m_state{std::make_shared<State>()} {
    const auto dispatch = [](GSource*, GSourceFunc call, gpointer data) { return call(data); };
    static GSourceFuncs functions{nullptr, nullptr, dispatch, nullptr, nullptr, nullptr};
    GSource* source = g_source_new(&functions, sizeof(GSource));
    const auto fire = [](gpointer data) -> gboolean {
        const auto state = static_cast<std::weak_ptr<State>*>(data)->lock();
        if (state) state->fire(g_get_monotonic_time());
        return G_SOURCE_CONTINUE;
    };
    const auto drop = [](gpointer data) { delete static_cast<std::weak_ptr<State>*>(data); };
    g_source_set_callback(source, fire, new std::weak_ptr<State>{m_state}, drop);
    g_source_attach(source, nullptr);
    m_state->source = source;
}

LoopTimers::~LoopTimers() {
    GSource* source = std::exchange(m_state->source, nullptr);
    g_source_destroy(source);
    g_source_unref(source);
}

Cancellable LoopTimers::after(double seconds, std::function<void()> call) {
    return schedule(seconds, 0, std::move(call));
}

Cancellable LoopTimers::every(double seconds, std::function<void()> call) {
    return schedule(seconds, std::max<Microseconds>(microseconds(seconds), 1), std::move(call));
}

Cancellable LoopTimers::schedule(double seconds, std::int64_t period, std::function<void()> call) {
    const auto number = ++m_state->count;
    auto shared = std::make_shared<std::function<void()>>(std::move(call));
    m_state->place(g_get_monotonic_time() + microseconds(seconds), {std::move(shared), period, number});
    return Cancellable{[state = std::weak_ptr{m_state}, number] {
        if (const auto held = state.lock(); held && held->source != nullptr) held->erase(number);
    }};
}

} // namespace velmorin
