#include "app/seams/Observable.h"

#include <utility>

namespace velmorin {

Cancellable Watchers::add(std::function<void()> call) {
    const std::uint64_t number = m_state->nextNumber++;
    m_state->calls.emplace(number, std::move(call));
    return Cancellable{[state = std::weak_ptr{m_state}, number] {
        if (const auto watched = state.lock()) watched->calls.erase(number);
    }};
}

void Watchers::notify() const {
    // The state and the call are kept for as long as they are in use: a watcher may call itself off, or let what it
    // watches go.
    const auto state = m_state;
    const std::uint64_t newcomers = state->nextNumber;
    for (auto next = state->calls.begin(); next != state->calls.end() && next->first < newcomers;) {
        const std::uint64_t number = next->first;
        const auto call = next->second;
        call();
        next = state->calls.upper_bound(number);
    }
}

} // namespace velmorin
