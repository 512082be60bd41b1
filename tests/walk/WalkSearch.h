#pragma once

#include "tests/walk/Invariant.h"
#include "tests/walk/WalkPlayer.h"
#include "tests/walk/WalkStep.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {

/// What walks have come past.
struct WalkStatistics {
    std::size_t walks = 0;
    std::size_t steps = 0;
    std::map<std::string, std::size_t> actions;
    std::map<std::string, std::size_t> overlays; ///< how often each came up
    std::map<std::string, std::size_t> events;

    void count(const WalkStep& step);
    void count(const SimulatedEvent& event);
    /// All of it as lines for people.
    std::string text() const;
    /// What walks must have come past to be a check at all, and these have not.
    std::vector<std::string> missing() const;
};

/// A walk after which an invariant does not hold.
struct Finding {
    Walk walk; ///< as small as it could be made
    Violation violation;
    std::size_t number = 0; ///< which walk of the search it was, from 0
    std::size_t foundSteps = 0;

    /// What to tell the one who has to mend it.
    std::string text() const;
};

struct SearchOptions {
    std::uint64_t seed = 1;
    std::size_t walks = 1;
    std::size_t stepsEach = 40;
    WalkPlayer::Probe probe; ///< may be missing
};

/// Plays random walks until one fails or all are played.
std::optional<Finding> search(const SearchOptions& options, WalkStatistics& statistics);

} // namespace velmorin
