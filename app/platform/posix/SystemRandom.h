#pragma once

#include "app/seams/Random.h"

namespace velmorin {

/// The system's cryptographic random source. Ends the program where that has nothing to give.
class SystemRandom final : public Random {
public:
    Bytes bytes(std::size_t count) override { return randomBytes(count); }
};

} // namespace velmorin
