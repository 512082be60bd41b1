#pragma once

#include "core/session/Segment.h"

#include <cstdint>

namespace velmorin {

/// The position in a plan at one moment.
struct ScheduleStatus {
    std::int64_t segmentIndex = 0; ///< index into the plan; the last one when the plan has run out
    SegmentKind kind = SegmentKind::work;
    double remainingInSegment = 0; ///< seconds
    double remainingTotal = 0;     ///< seconds left in the whole plan
    bool isFinished = false;       ///< the plan has run out

    /// A session whose plan has run out is not locked, whatever its last segment was.
    constexpr bool isLocked() const { return !isFinished && velmorin::isLocked(kind); }

    bool operator==(const ScheduleStatus&) const = default;
};

} // namespace velmorin
