#include "core/session/ActiveSession.h"

#include "core/session/Schedule.h"

#include <algorithm>
#include <utility>

namespace velmorin {

ActiveSession::ActiveSession(std::string nameOfProfile, SessionMode sessionMode, std::string statedIntent, Date start,
                             std::vector<Segment> plan, std::vector<std::string> bundleIDs,
                             std::vector<std::string> domains, UUID freshID)
    : id{freshID},
      profileName{std::move(nameOfProfile)},
      mode{sessionMode},
      intent{std::move(statedIntent)},
      startedAt{start},
      segments{std::move(plan)},
      allowedBundleIDs{std::move(bundleIDs)},
      allowedDomains{std::move(domains)} {}

ScheduleStatus ActiveSession::status(Date at) const {
    return Schedule::status(segments, startedAt, at);
}

Date ActiveSession::plannedEnd() const {
    return startedAt + Schedule::totalDuration(segments);
}

double ActiveSession::exitWaitSeconds() const {
    return velmorin::exitWaitSeconds(mode);
}

bool ActiveSession::isAllWorkDone(Date at) const {
    const ScheduleStatus position = status(at);
    if (position.isFinished) return true;
    return std::none_of(segments.begin() + position.segmentIndex, segments.end(),
                        [](const Segment& segment) { return segment.kind == SegmentKind::work; });
}

double ActiveSession::remainingFraction(Date at) const {
    const double total = Schedule::totalDuration(segments);
    if (!(total > 0)) return 0;
    const double fraction = status(at).remainingTotal / total;
    // Written so that a plan of no finite length, which only a file edited by hand can hold, has nothing to come.
    return fraction > 0 ? std::min(fraction, 1.0) : 0.0;
}

} // namespace velmorin
