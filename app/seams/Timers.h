#pragma once

#include "app/seams/Cancellable.h"

#include <functional>

namespace velmorin {

/// Calls that come after a while, on the main thread and never from within the operation that asks for them. They go by
/// a clock that nobody sets and that may stand still while the machine sleeps. They come in the order of their
/// deadlines, also where they are overdue, and then at once. A call may ask for others and cancel any, itself included.
class Timers {
public:
    virtual ~Timers() = default;

    /// Calls once after this many seconds; zero or less means as soon as the present work is done.
    [[nodiscard]] virtual Cancellable after(double seconds, std::function<void()> call) = 0;
    /// Calls again and again with this period in seconds, above zero, also while a menu is open or a window is dragged.
    /// What was missed is not made up for: one call comes at once, and the period goes on from there.
    [[nodiscard]] virtual Cancellable every(double seconds, std::function<void()> call) = 0;
};

} // namespace velmorin
