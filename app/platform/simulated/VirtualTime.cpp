#include "app/platform/simulated/VirtualTime.h"

#include <algorithm>
#include <stdexcept>

namespace velmorin {

namespace {

/// More calls at one moment than any scene needs: they call forth each other.
constexpr int tooManyCalls = 100'000;

} // namespace

Cancellable VirtualTime::after(double seconds, std::function<void()> call) {
    const double delay = seconds > 0 ? seconds : 0;
    return schedule(m_elapsed + delay, {std::move(call), std::nullopt, ++m_state->count});
}

Cancellable VirtualTime::every(double seconds, std::function<void()> call) {
    return schedule(m_elapsed + seconds, {std::move(call), seconds, ++m_state->count});
}

Cancellable VirtualTime::schedule(double deadline, Timer timer) {
    const std::uint64_t number = timer.number;
    place(deadline, std::move(timer));
    return Cancellable{[state = std::weak_ptr{m_state}, number] {
        const auto held = state.lock();
        const auto found = held ? held->places.extract(number) : decltype(held->places)::node_type{};
        if (!found.empty()) held->timers.erase(found.mapped());
    }};
}

void VirtualTime::place(double deadline, Timer timer) {
    const Place place{deadline, ++m_state->count};
    m_state->places[timer.number] = place;
    m_state->timers.emplace(place, std::move(timer));
}

Cancellable VirtualTime::post(std::function<void()> call) {
    const std::uint64_t number = ++m_state->count;
    m_state->posted.emplace_back(number, std::move(call));
    return Cancellable{[state = std::weak_ptr{m_state}, number] {
        if (const auto held = state.lock())
            std::erase_if(held->posted, [number](const auto& entry) { return entry.first == number; });
    }};
}

std::optional<double> VirtualTime::nextDeadline() const {
    return m_state->timers.empty() ? std::nullopt : std::optional{m_state->timers.begin()->first.first};
}

void VirtualTime::postNext(std::function<void()> call) {
    m_state->posted.emplace_front(++m_state->count, std::move(call));
}

void VirtualTime::settle() {
    for (int calls = 0; makeNextCall(m_elapsed); ++calls) {
        if (calls == tooManyCalls) throw std::runtime_error{"the desktop does not come to rest"};
    }
}

bool VirtualTime::makeNextCall(double moment) {
    if (!m_state->posted.empty()) {
        const auto call = std::move(m_state->posted.front().second);
        m_state->posted.pop_front();
        call();
        return true;
    }
    if (m_state->timers.empty() || m_state->timers.begin()->first.first > moment) return false;
    fireNext();
    return true;
}

void VirtualTime::sleep(double seconds) {
    settle();
    m_elapsed += seconds;
    advanceUntil(m_elapsed);
}

void VirtualTime::advanceUntil(double moment) {
    // Rest is asked for moment by moment: only calls at one and the same can be without end.
    for (settle(); nextDeadline() && *nextDeadline() <= moment; settle())
        m_elapsed = std::max(m_elapsed, *nextDeadline());
    m_elapsed = moment;
}

void VirtualTime::fireNext() {
    auto node = m_state->timers.extract(m_state->timers.begin());
    Timer timer = std::move(node.mapped());
    const auto call = timer.call;
    if (timer.period) {
        const double next = m_elapsed + *timer.period;
        place(next, std::move(timer));
    } else {
        m_state->places.erase(timer.number);
    }
    call();
}

} // namespace velmorin
