#pragma once

#include "app/seams/Clock.h"

#include <chrono>

namespace velmorin {

/// The system's wall clock.
class SystemClock final : public Clock {
public:
    Date now() const override {
        const auto since1970 = std::chrono::system_clock::now().time_since_epoch();
        return Date::fromSecondsSince1970(std::chrono::duration<double>{since1970}.count());
    }
};

} // namespace velmorin
