#pragma once

#include "core/foundation/Date.h"
#include "core/session/DeepConfig.h"
#include "core/session/PomodoroConfig.h"
#include "core/session/ScheduleStatus.h"
#include "core/session/Segment.h"

#include <cstddef>
#include <span>
#include <vector>

/// The plan of a session, and every question about the position in it. A plan has no running state: each answer
/// follows from the list, the moment the session started and the present one, so that a restarted program finds its
/// place by asking again. Pure functions, any thread; none fails. A moment before the start counts as the start.
namespace velmorin::Schedule {

/// No plan is longer; it takes a file edited by hand to ask for more. A pomodoro plan stops there, wherever in a cycle
/// that is; a deep plan puts what is left into its last work block.
inline constexpr std::size_t maximumSegments = 100'000;

/// Work blocks with short breaks between them and a long break after each `cyclesBeforeLongBreak`-th one, also after
/// the last: only a trailing short break is dropped. Values below 1 count as 1, so that there is always a segment.
std::vector<Segment> pomodoro(const PomodoroConfig& config);

/// Work blocks with locked breaks between them, `totalMinutes` (at least 1) in all. Never ends in a break: a rest no
/// longer than one break joins the last work block. Without a positive break or interval it is one work block.
std::vector<Segment> deep(const DeepConfig& config);

/// The sum of all durations in seconds, added in list order; 0 for an empty plan.
double totalDuration(std::span<const Segment> segments);

/// The position at `now`. A segment ends exactly at its end time; there is no tolerance.
ScheduleStatus status(std::span<const Segment> segments, Date startedAt, Date now);

/// The work segments that have run to their end, in plan order. One that lacks at most a hundredth of a second counts,
/// so that rounding in the sum costs nobody a round.
std::vector<Segment> finishedWork(std::span<const Segment> segments, Date startedAt, Date now);

/// The seconds of work time that have passed, part-finished blocks included.
double focusedSeconds(std::span<const Segment> segments, Date startedAt, Date now);

} // namespace velmorin::Schedule
