#pragma once

#include "app/seams/Cancellable.h"
#include "core/geometry/PanelPlacement.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>

namespace velmorin {

/// A window of this program by the number that the display server knows it by.
using NativeWindow = std::uint64_t;

/// Where this program's windows are among those of all programs. Main thread.
class DesktopLayers {
public:
    /// Windows in front of all others.
    struct Front {
        std::span<const NativeWindow> windows; ///< the foremost first
        std::optional<NativeWindow> key;       ///< the one of them that has the keyboard
        /// Called when the keyboard may have become free that another program had for itself, and when the key window
        /// has lost it. May be missing.
        std::function<void()> keyboardChanged;
    };

    virtual ~DesktopLayers() = default;

    /// Keeps windows that are on the screen in front of all others, also of those that come later and by no window
    /// manager's leave, until the result goes. A program that insists on the same place cannot keep this one busy.
    [[nodiscard]] virtual Cancellable keepInFront(const Front& front) = 0;
    /// Gives a window the keyboard, whoever has it.
    virtual void focus(NativeWindow window) = 0;
    /// Gives the keyboard that a window has to the active window of another program. Nothing where it has none.
    virtual void giveBackFocus(NativeWindow window) = 0;
    /// Whether a window has the keyboard, as the display server says now.
    virtual bool isFocused(NativeWindow window) const = 0;
    /// Keeps windows that are on the screen just above the desktop's own, below all others, until the result goes.
    [[nodiscard]] virtual Cancellable keepBehind(std::span<const NativeWindow> windows) = 0;
    /// The place of the active window, in the server's own unit; absent without one.
    virtual std::optional<Rectangle> activeFrame() const = 0;
};

} // namespace velmorin
