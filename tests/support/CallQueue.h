#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <utility>

namespace velmorin {

/// The main thread's queue of calls, made by the thread that waits for what they bring about.
class CallQueue {
public:
    /// Long enough for a machine that has much else to do; only a test that fails waits this long.
    static constexpr std::chrono::seconds patience{60};

    /// Any thread.
    void post(std::function<void()> call) {
        const std::lock_guard lock{m_mutex};
        m_calls.push_back(std::move(call));
        ++m_posted;
        m_isPosted.notify_one();
    }

    /// Makes the posted calls, one after the other, until `condition` holds. False when it does not within that time.
    template <class Condition>
    bool runUntil(Condition condition, std::chrono::duration<double> limit = patience) {
        const auto deadline = std::chrono::steady_clock::now() + limit;
        while (!condition()) {
            std::unique_lock lock{m_mutex};
            if (!m_isPosted.wait_until(lock, deadline, [this] { return !m_calls.empty(); })) return false;
            const auto call = std::move(m_calls.front());
            m_calls.pop_front();
            lock.unlock();
            call();
        }
        return true;
    }

    /// Waits until that many calls have been posted in all, without making them.
    bool awaitPosted(std::size_t count) {
        std::unique_lock lock{m_mutex};
        return m_isPosted.wait_for(lock, patience, [&] { return m_posted >= count; });
    }

    /// Makes the calls that are there by now.
    void runPosted() {
        std::unique_lock lock{m_mutex};
        const auto calls = std::exchange(m_calls, {});
        lock.unlock();
        for (const auto& call : calls)
            call();
    }

    /// How many calls were ever posted.
    std::size_t posted() {
        const std::lock_guard lock{m_mutex};
        return m_posted;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_isPosted;
    std::deque<std::function<void()>> m_calls;
    std::size_t m_posted = 0;
};

} // namespace velmorin
