#pragma once

#include <functional>

namespace velmorin {

/// Work that goes on later: a timer, an observation, a request. It is called off when this goes or is assigned over,
/// unless it was detached before; nothing happens any more once `cancel` has returned. Movable, not copyable. The
/// thread that asked for the work, which is the main one.
class Cancellable {
public:
    /// Nothing that could be called off.
    Cancellable() = default;
    /// `cancelWork` calls the work off; it is called at most once, and harmless when the work has ended.
    explicit Cancellable(std::function<void()> cancelWork);
    Cancellable(Cancellable&& other) noexcept;
    Cancellable& operator=(Cancellable&& other) noexcept;
    Cancellable(const Cancellable&) = delete;
    Cancellable& operator=(const Cancellable&) = delete;
    ~Cancellable();

    /// Calls the work off; a second time does nothing.
    void cancel();
    /// Lets the work go on whatever becomes of this.
    void detach();
    /// Whether there is anything to call off. Work that has ended by itself still counts.
    explicit operator bool() const { return static_cast<bool>(m_cancel); }

private:
    std::function<void()> m_cancel;
};

} // namespace velmorin
