#pragma once

#include <QAnimationDriver>

namespace velmorin {

/// The time by which the toolkit's animations go, once `install` was called: it stands still but for `advance`, so that
/// the same picture comes out each time. Main thread.
class AnimationClock final : public QAnimationDriver {
    Q_OBJECT

public:
    qint64 elapsed() const override { return m_milliseconds; }

    /// Lets this many seconds pass for all animations.
    void advanceBy(double seconds);

private:
    qint64 m_milliseconds = 0;
    double m_rest = 0; ///< of a millisecond
};

} // namespace velmorin
