#include "core/session/SessionRecord.h"

#include "core/session/Schedule.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>
#include <vector>

namespace velmorin {

namespace {

/// The work blocks of a pomodoro session that count.
std::vector<Segment> creditedBlocks(const ActiveSession& session, Date endedAt, SessionOutcome outcome) {
    if (outcome == SessionOutcome::aborted) {
        return Schedule::finishedWork(session.segments, session.startedAt, endedAt);
    }
    std::vector<Segment> blocks;
    std::ranges::copy_if(session.segments, std::back_inserter(blocks),
                         [](const Segment& segment) { return segment.kind == SegmentKind::work; });
    return blocks;
}

} // namespace

SessionRecord::SessionRecord(const ActiveSession& session, Date end, SessionOutcome how,
                             std::optional<std::string> reason)
    : id{session.id},
      profileName{session.profileName},
      mode{session.mode},
      intent{session.intent},
      startedAt{session.startedAt},
      endedAt{end},
      attempts{session.attempts},
      returns{session.returns},
      outcome{how},
      exitReason{std::move(reason)} {
    if (mode == SessionMode::deep) {
        focusedSeconds = Schedule::focusedSeconds(session.segments, startedAt, endedAt);
    } else {
        const std::vector<Segment> credited = creditedBlocks(session, endedAt, outcome);
        completedRounds = static_cast<std::int64_t>(credited.size());
        focusedSeconds = Schedule::totalDuration(credited);
    }
    // A plan of no finite length, which only a file edited by hand can hold, must not keep the history from being
    // saved.
    if (!std::isfinite(focusedSeconds)) focusedSeconds = 0;
}

} // namespace velmorin
