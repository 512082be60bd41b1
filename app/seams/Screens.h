#pragma once

#include "app/seams/Cancellable.h"
#include "core/geometry/PanelPlacement.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace velmorin {

/// The screens of the desktop. Main thread.
class Screens {
public:
    virtual ~Screens() = default;

    /// The area of each screen in the unit in which windows are laid out, in the desktop's own order. Empty without
    /// screens.
    virtual std::vector<Rectangle> frames() const = 0;
    /// The screen where the user works, by its place in `frames`; absent when that cannot be told.
    virtual std::optional<std::size_t> main() const = 0;
    /// Calls when the arrangement may have changed, once it has come to rest, until the result goes. The frames may be
    /// as they were.
    [[nodiscard]] virtual Cancellable observeChanges(std::function<void()> call) = 0;
};

} // namespace velmorin
