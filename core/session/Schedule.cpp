#include "core/session/Schedule.h"

#include <algorithm>
#include <cstdint>

namespace velmorin::Schedule {

namespace {

constexpr double seconds(std::int64_t minutes) {
    return static_cast<double>(minutes) * 60.0;
}

constexpr std::int64_t atLeastOne(std::int64_t value) {
    return std::max<std::int64_t>(value, 1);
}

/// A clock set back keeps the session at its start.
double elapsedSeconds(Date startedAt, Date now) {
    return std::max(now - startedAt, 0.0);
}

} // namespace

std::vector<Segment> pomodoro(const PomodoroConfig& config) {
    const Segment work{SegmentKind::work, seconds(atLeastOne(config.workMinutes))};
    const Segment shortBreak{SegmentKind::shortBreak, seconds(atLeastOne(config.shortBreakMinutes))};
    const Segment longBreak{SegmentKind::longBreak, seconds(atLeastOne(config.longBreakMinutes))};
    const std::int64_t every = atLeastOne(config.cyclesBeforeLongBreak);
    const std::int64_t total = atLeastOne(config.totalCycles);

    std::vector<Segment> segments;
    for (std::int64_t cycle = 1; cycle <= total && segments.size() + 1 < maximumSegments; ++cycle) {
        segments.push_back(work);
        if (cycle % every == 0) {
            segments.push_back(longBreak);
        } else if (cycle < total) {
            segments.push_back(shortBreak);
        }
    }
    return segments;
}

std::vector<Segment> deep(const DeepConfig& config) {
    double left = seconds(atLeastOne(config.totalMinutes));
    const double every = seconds(config.breakEveryMinutes);
    const double pause = seconds(config.breakMinutes);
    if (every <= 0 || pause <= 0) return {{SegmentKind::work, left}};

    std::vector<Segment> segments;
    for (;;) {
        const double work = std::min(left, every);
        segments.push_back({SegmentKind::work, work});
        left -= work;
        const bool isFull = segments.size() + 1 >= maximumSegments;
        if (pause >= left || isFull) break;
        segments.push_back({SegmentKind::lockedBreak, pause});
        left -= pause;
    }
    segments.back().duration += left;
    return segments;
}

double totalDuration(std::span<const Segment> segments) {
    double total = 0;
    for (const auto& segment : segments)
        total += segment.duration;
    return total;
}

ScheduleStatus status(std::span<const Segment> segments, Date startedAt, Date now) {
    const double elapsed = elapsedSeconds(startedAt, now);
    double end = 0;
    for (std::size_t index = 0; index < segments.size(); ++index) {
        end += segments[index].duration;
        if (elapsed < end) {
            return {.segmentIndex = static_cast<std::int64_t>(index),
                    .kind = segments[index].kind,
                    .remainingInSegment = end - elapsed,
                    .remainingTotal = totalDuration(segments) - elapsed,
                    .isFinished = false};
        }
    }
    if (segments.empty()) return {.isFinished = true};
    return {.segmentIndex = static_cast<std::int64_t>(segments.size()) - 1,
            .kind = segments.back().kind,
            .isFinished = true};
}

std::vector<Segment> finishedWork(std::span<const Segment> segments, Date startedAt, Date now) {
    constexpr double tolerance = 0.01;
    const double elapsed = elapsedSeconds(startedAt, now);
    std::vector<Segment> finished;
    double end = 0;
    for (const auto& segment : segments) {
        end += segment.duration;
        if (!(end - tolerance <= elapsed)) break;
        if (segment.kind == SegmentKind::work) finished.push_back(segment);
    }
    return finished;
}

double focusedSeconds(std::span<const Segment> segments, Date startedAt, Date now) {
    const double elapsed = elapsedSeconds(startedAt, now);
    double offset = 0;
    double focused = 0;
    for (const auto& segment : segments) {
        if (!(offset < elapsed)) break;
        if (segment.kind == SegmentKind::work) focused += std::min(elapsed - offset, segment.duration);
        offset += segment.duration;
    }
    return focused;
}

} // namespace velmorin::Schedule
