#pragma once

namespace velmorin {

/// The small clock beside the allowed application. Main thread.
class FloatingTimer {
public:
    virtual ~FloatingTimer() = default;

    /// Shows it above all others, without taking the keyboard.
    virtual void orderFront() = 0;
    virtual void orderOut() = 0;
};

/// The field of one line for a thought that comes in between. Main thread.
class QuickThought {
public:
    virtual ~QuickThought() = default;

    virtual void show() = 0;
};

} // namespace velmorin
