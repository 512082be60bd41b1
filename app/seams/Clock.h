#pragma once

#include "core/foundation/Date.h"

namespace velmorin {

/// The wall clock, by which plans run, also while the machine sleeps. The user may set it, so it can go back. Main
/// thread.
class Clock {
public:
    virtual ~Clock() = default;

    virtual Date now() const = 0;
};

} // namespace velmorin
