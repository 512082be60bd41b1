#pragma once

#include "core/geometry/PanelPlacement.h"

#include <functional>
#include <memory>

namespace velmorin {

/// A window that covers a screen, made without being on it. It is gone from the screen when it is destroyed, which may
/// be from within its own completion. Main thread.
class CoverWindow {
public:
    virtual ~CoverWindow() = default;

    /// What it covers.
    virtual Rectangle frame() const = 0;
    /// From 0, which lets everything through, to 1, which it begins with.
    virtual void setOpacity(double opacity) = 0;
    /// Goes from the present opacity to another in this many seconds, in the place of a fade under way, whose
    /// completion is never called then. `completion` may be missing.
    virtual void fade(double opacity, double seconds, std::function<void()> completion) = 0;
    /// Puts it on the screen, in front of all windows of its own level, and leaves the keyboard where it is.
    virtual void orderFront() = 0;
    /// The same, and takes the keyboard.
    virtual void makeKeyAndOrderFront() = 0;
    /// Takes it off the screen at once.
    virtual void orderOut() = 0;
};

/// How the content of a cover window is to be made.
struct CoverContent {
    bool isPrimary = false; ///< whether it is on the screen where the user works
    double unit = 1;        ///< the factor of all sizes on it

    bool operator==(const CoverContent&) const = default;
};

/// Makes the windows of one level of the desktop. Main thread.
class CoverWindowFactory {
public:
    virtual ~CoverWindowFactory() = default;

    /// A window for the screen that has this frame. It must not outlive this.
    virtual std::unique_ptr<CoverWindow> make(const Rectangle& frame, const CoverContent& content) = 0;
};

} // namespace velmorin
