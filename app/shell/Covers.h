#pragma once

namespace velmorin {

/// The full-screen windows of the overlay, one on each screen. Main thread.
class OverlayCover {
public:
    virtual ~OverlayCover() = default;

    /// Puts a window on every screen, above everything, and takes the keyboard. To be called only while none is shown.
    virtual void show() = 0;
    /// Lets all of them go; what is shown right after starts clean.
    virtual void hide() = 0;
    /// Whether there is a window.
    virtual bool isShown() const = 0;
};

/// The windows behind all others during the locked stretches of a session, one on each screen. Main thread.
class BackdropCover {
public:
    enum class Appearing { atOnce, animated };

    virtual ~BackdropCover() = default;

    virtual void show(Appearing appearing) = 0;
    virtual void hide() = 0;
    /// Whether it is meant to be seen. Set by whoever shows and hides it, before he does.
    bool isVisible = false;
};

} // namespace velmorin
