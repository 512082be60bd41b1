#pragma once

#include "app/platform/simulated/SimulatedDesktop.h"
#include "tests/support/MemoryFiles.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace velmorin {

/// A simulated desktop with nobody on it, and what its journal tells.
class WorldTest : public ::testing::Test {
protected:
    static constexpr Date startOfScene{800'000'000};

    WorldTest();

    void settle() { desktop.time.settle(); }
    void advance(double seconds) { desktop.time.advance(seconds); }
    /// The events so far, each as in `hide "pid":11`; those that are asked for are not told again.
    std::vector<std::string> takeEvents();

    MemoryFiles files;
    SimulatedDesktop desktop{startOfScene, files};

private:
    std::vector<std::string> m_events;
};

} // namespace velmorin
