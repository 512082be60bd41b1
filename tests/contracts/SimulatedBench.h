#pragma once

#include "app/platform/simulated/SimulatedDesktop.h"
#include "tests/contracts/Bench.h"
#include "tests/support/MemoryFiles.h"

#include <string>
#include <vector>

namespace velmorin {

/// The bench of a seam on a simulated desktop, where time passes as soon as a contract asks for it.
template <class Kind>
class SimulatedBench : public Kind {
public:
    SimulatedBench() {
        desktop.journal.onEvent = [this](const SimulatedEvent& event) { events.push_back(event); };
    }

    void settle() override { desktop.time.settle(); }
    void wait(double seconds) override { desktop.time.advance(seconds); }

protected:
    MemoryFiles files;
    SimulatedDesktop desktop{Date{800'000'000}, files};
    std::vector<SimulatedEvent> events;
};

/// The one bench of a kind that stands on the simulated desktop.
template <class Kind, class Simulated>
auto simulated() {
    return ::testing::Values(BenchMaker<Kind>{"Simulated", [] { return std::make_unique<Simulated>(); }});
}

} // namespace velmorin
