#pragma once

#include "core/foundation/Bytes.h"
#include "core/foundation/UUID.h"

#include <cstddef>

namespace velmorin {

/// Where identifiers, secrets and shuffles come from. Main thread.
class Random {
public:
    virtual ~Random() = default;

    /// Exactly so many bytes that nobody can foresee.
    virtual Bytes bytes(std::size_t count) = 0;
};

/// A fresh identifier.
UUID freshID(Random& random);

} // namespace velmorin
