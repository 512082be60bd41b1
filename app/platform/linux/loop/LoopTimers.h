#pragma once

#include "app/seams/Timers.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace velmorin {

/// Timers on the main loop, by the system's monotonic clock, which stands still while the machine sleeps. However many
/// there are, the loop wakes for the next deadline only.
class LoopTimers final : public Timers {
public:
    LoopTimers();
    LoopTimers(const LoopTimers&) = delete;
    LoopTimers& operator=(const LoopTimers&) = delete;
    /// No timer calls any more.
    ~LoopTimers() override;

    [[nodiscard]] Cancellable after(double seconds, std::function<void()> call) override;
    [[nodiscard]] Cancellable every(double seconds, std::function<void()> call) override;

private:
    struct State;

    Cancellable schedule(double seconds, std::int64_t period, std::function<void()> call);

    std::shared_ptr<State> m_state;
};

} // namespace velmorin
