#pragma once

#include "app/seams/Observable.h"

namespace velmorin {

/// What the desktop's settings say of things that move. Main thread.
class MotionPreference {
public:
    virtual ~MotionPreference() = default;

    /// Whether the user wants none where it can be done without. False as long as nobody says so.
    virtual const Observable<bool>& reducesMotion() const = 0;
};

} // namespace velmorin
