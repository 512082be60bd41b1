#pragma once

#include "app/seams/Cancellable.h"

#include <functional>

namespace velmorin {

/// The bar of the desktop that shows the icons of programs. It may come later than this program, or never. Main thread.
class StatusBar {
public:
    virtual ~StatusBar() = default;

    /// Calls once, later, as soon as there is one; also where there is one already. Not after the result has gone.
    [[nodiscard]] virtual Cancellable whenThere(std::function<void()> call) = 0;
};

} // namespace velmorin
