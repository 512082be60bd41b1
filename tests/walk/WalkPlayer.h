#pragma once

#include "app/simulate/Scenario.h"
#include "tests/support/MemoryFiles.h"
#include "tests/walk/Invariants.h"
#include "tests/walk/WalkStep.h"

#include <functional>
#include <optional>

namespace velmorin {

/// Plays one walk on the real engine, with files in memory, and watches the invariants.
class WalkPlayer {
public:
    /// Looks at the scene after each step; true counts as the violation `testProbe`.
    using Probe = std::function<bool(Scene&)>;

    explicit WalkPlayer(Probe probe = {});
    WalkPlayer(const WalkPlayer&) = delete;
    WalkPlayer& operator=(const WalkPlayer&) = delete;

    /// Sets the scene; the steps of `walk` are not played.
    void setUp(const Walk& walk);
    /// Plays a step. One that has lost its meaning, because what it was about is gone, does nothing.
    void play(const WalkStep& step);

    const std::optional<Violation>& violation() const { return m_invariants.violation(); }
    Scene& scene() { return *m_scenario.scene(); }

    std::function<void(const SimulatedEvent&)> onEvent; ///< may be missing

private:
    void playLine(const std::string& line);

    Probe m_probe;
    MemoryFiles m_files;
    Scenario m_scenario;
    Invariants m_invariants;
};

/// Plays a whole walk, until something does not hold.
std::optional<Violation> play(const Walk& walk, const WalkPlayer::Probe& probe = {});

} // namespace velmorin
