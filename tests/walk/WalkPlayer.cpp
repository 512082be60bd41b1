#include "tests/walk/WalkPlayer.h"

#include <stdexcept>
#include <utility>

namespace velmorin {

namespace {

const std::filesystem::path directory = "/data/Velmorin";

} // namespace

WalkPlayer::WalkPlayer(Probe probe)
    : m_probe{std::move(probe)},
      m_scenario{m_files,
                 {directory, true, {}},
                 [this](const SimulatedEvent& event) {
                     m_invariants.onEvent(event);
                     if (onEvent) onEvent(event);
                 }},
      m_invariants{m_scenario, m_files, directory} {}

void WalkPlayer::setUp(const Walk& walk) {
    playLine(walk.firstLine());
    m_invariants.afterStep();
}

void WalkPlayer::play(const WalkStep& step) {
    m_invariants.beforeStep(step);
    playLine(step.line());
    m_invariants.afterStep();
    if (m_probe && m_probe(scene())) m_invariants.fail(Invariant::testProbe, "the probe says so");
}

void WalkPlayer::playLine(const std::string& line) {
    try {
        m_scenario.play(line);
    } catch (const MalformedInput& failure) {
        // Only a walk that was made smaller has such steps; a scene is never malformed.
        if (!m_scenario.scene()) throw;
    } catch (const std::runtime_error& failure) {
        m_invariants.fail(Invariant::comesToRest, failure.what());
    }
}

std::optional<Violation> play(const Walk& walk, const WalkPlayer::Probe& probe) {
    WalkPlayer player{probe};
    player.setUp(walk);
    for (const auto& step : walk.steps) {
        if (player.violation()) break;
        player.play(step);
    }
    return player.violation();
}

} // namespace velmorin
