// The contract of time, kept by the main loop of a Linux desktop.

#include "app/platform/linux/loop/LoopTimers.h"
#include "app/platform/linux/loop/MainLoop.h"
#include "app/platform/posix/SystemClock.h"
#include "tests/contracts/TimeContract.h"
#include "tests/support/LoopRunner.h"

#include <chrono>
#include <thread>

namespace velmorin {
namespace {

class LoopTimeBench final : public TimeBench {
public:
    void settle() override { m_runner.settle(); }
    void wait(double seconds) override { m_runner.run(seconds); }
    Clock& clock() override { return m_clock; }
    Timers& timers() override { return m_timers; }
    void stall(double seconds) override { std::this_thread::sleep_for(std::chrono::duration<double>{seconds}); }
    bool setClock(double) override { return false; }

private:
    SystemClock m_clock;
    LoopTimers m_timers;
    LoopRunner m_runner;
};

INSTANTIATE_TEST_SUITE_P(Contracts, TimeContract,
                         (::testing::Values(BenchMaker<TimeBench>{"Loop",
                                                                  [] { return std::make_unique<LoopTimeBench>(); }})),
                         nameOfMaker<TimeBench>);

} // namespace
} // namespace velmorin
