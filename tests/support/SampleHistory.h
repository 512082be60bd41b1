#pragma once

#include "core/foundation/Date.h"
#include "core/session/SessionRecord.h"

#include <cstddef>
#include <vector>

namespace velmorin {

/// The present of the sample histories.
inline constexpr Date sampleNow{800'000'000};

/// How far apart the sessions of a sample history lie.
enum class SampleSpread {
    years, ///< some ten a day
    days,  ///< all within the last four weeks, where charts look
};

/// A history such as years of use make it, newest first: both modes, seven projects, Persian and English texts, times
/// with fractions, some sessions left early. The same one each time.
std::vector<SessionRecord> sampleHistory(std::size_t count, SampleSpread spread = SampleSpread::years);

} // namespace velmorin
