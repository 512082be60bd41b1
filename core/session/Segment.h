#pragma once

#include "core/foundation/Fields.h"

#include <array>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace velmorin {

/// What a stretch of a session is for.
enum class SegmentKind {
    work,        ///< focus time, counted as focused
    shortBreak,  ///< free break of a pomodoro plan
    longBreak,   ///< free long break of a pomodoro plan
    lockedBreak, ///< pause of a deep plan; the enforcement stays on throughout it
};

constexpr std::array<std::string_view, 4> rawValues(SegmentKind) {
    return {"work", "shortBreak", "longBreak", "lockedBreak"};
}

/// Whether the machine is locked during a segment of this kind.
constexpr bool isLocked(SegmentKind kind) {
    return kind == SegmentKind::work || kind == SegmentKind::lockedBreak;
}

/// One stretch of a plan.
struct Segment {
    SegmentKind kind = SegmentKind::work;
    double duration = 0; ///< seconds

    bool operator==(const Segment&) const = default;
};

constexpr auto fields(std::type_identity<Segment>) {
    return std::tuple{field("kind", &Segment::kind), field("duration", &Segment::duration)};
}

} // namespace velmorin
