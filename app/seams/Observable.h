#pragma once

#include "app/seams/Cancellable.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace velmorin {

/// Those who want to hear of a change, called in the order in which they came. Main thread.
class Watchers {
public:
    Watchers() = default;
    Watchers(const Watchers&) = delete;
    Watchers& operator=(const Watchers&) = delete;

    /// The call is made until the result goes. A watcher may come or go during a call; one that comes hears only of
    /// later changes.
    [[nodiscard]] Cancellable add(std::function<void()> call);
    void notify() const;

private:
    struct State {
        std::uint64_t nextNumber = 0;
        std::map<std::uint64_t, std::function<void()>> calls;
    };
    std::shared_ptr<State> m_state = std::make_shared<State>();
};

/// Whether an assignment is a change.
template <class Value>
bool shouldNotifyObservers(const Value& before, const Value& after) {
    return !(before == after);
}

/// A value whose watchers hear of a change, never of an assignment of the same value. Main thread.
template <class Value>
class Observable {
public:
    Observable() = default;
    explicit Observable(Value value) : m_value{std::move(value)} {}

    const Value& get() const { return m_value; }
    const Value& operator*() const { return m_value; }
    const Value* operator->() const { return &m_value; }

    /// The value is replaced in every case; watchers are called after that, and only when it differs.
    void set(Value value) {
        const bool isChange = shouldNotifyObservers(m_value, value);
        m_value = std::move(value);
        if (isChange) m_watchers.notify();
    }

    /// Calls `call` after each change until the result goes, which may outlive this object.
    [[nodiscard]] Cancellable watch(std::function<void()> call) const { return m_watchers.add(std::move(call)); }

private:
    Value m_value{};
    mutable Watchers m_watchers;
};

} // namespace velmorin
