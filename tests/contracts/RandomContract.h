#pragma once

#include "app/seams/Random.h"
#include "tests/contracts/Bench.h"

namespace velmorin {

class RandomBench {
public:
    virtual ~RandomBench() = default;

    virtual Random& random() = 0;
};

/// What random bytes promise, as far as it shows: that nobody can foresee them does not.
class RandomContract : public Contract<RandomBench> {
protected:
    Random& random() { return bench().random(); }
};

} // namespace velmorin
