#pragma once

#include "app/seams/Clock.h"
#include "app/seams/Timers.h"
#include "tests/contracts/Bench.h"

namespace velmorin {

class TimeBench : public Bench {
public:
    virtual Clock& clock() = 0;
    virtual Timers& timers() = 0;

    /// Lets time pass while the main thread is held up, so that no call comes in; not even what is overdue then.
    virtual void stall(double seconds) = 0;
    /// Moves the wall clock; false where a test may not do that.
    virtual bool setClock(double by) = 0;
};

/// What timers and the wall clock promise. The periods are short, since a real bench waits in earnest.
class TimeContract : public Contract<TimeBench> {
protected:
    Timers& timers() { return bench().timers(); }
    /// A call that counts.
    std::function<void()> counting(int& calls) {
        return [&calls] { ++calls; };
    }
};

} // namespace velmorin
