#pragma once

namespace velmorin {

/// How this program stands among the others while it covers the screens. Main thread.
class Presentation {
public:
    enum class Options {
        usual,
        /// No way to another program: what switches between programs, ends them or starts them by a key is off, and
        /// what comes in front of the windows shown is covered again.
        locked,
    };

    virtual ~Presentation() = default;

    /// Makes this program the active one, whichever is. It may lose to another that is just starting.
    virtual void activate() = 0;
    /// Whether this program is the active one and has the keyboard.
    virtual bool isActive() const = 0;
    /// Holds for what is shown from now on as well.
    virtual void setOptions(Options options) = 0;
};

} // namespace velmorin
