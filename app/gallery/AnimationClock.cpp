#include "app/gallery/AnimationClock.h"

#include <cmath>

namespace velmorin {

void AnimationClock::advanceBy(double seconds) {
    const double milliseconds = seconds * 1000 + m_rest;
    const double whole = std::floor(milliseconds);
    m_rest = milliseconds - whole;
    m_milliseconds += static_cast<qint64>(whole);
    advance();
}

} // namespace velmorin
