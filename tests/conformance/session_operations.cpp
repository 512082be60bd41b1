#include "core/session/ActiveSession.h"
#include "core/session/Profile.h"
#include "core/session/Schedule.h"
#include "core/session/SessionRecord.h"
#include "tests/conformance/Operations.h"

#include <optional>
#include <string>
#include <vector>

namespace velmorin::conformance {

namespace {

using Segments = std::vector<Segment>;

void write(JSONOutput& output, const ScheduleStatus& status) {
    output.beginObject();
    output.key("segmentIndex");
    output.write(status.segmentIndex);
    output.key("kind");
    output.write(rawValue(status.kind));
    output.key("remainingInSegment");
    output.write(status.remainingInSegment);
    output.key("remainingTotal");
    output.write(status.remainingTotal);
    output.key("isFinished");
    output.write(status.isFinished);
    output.key("isLocked");
    output.write(status.isLocked());
    output.endObject();
}

/// An operation on a plan, the moment of its start and the present one.
template <class Answer>
Operation onPlan(Answer answer) {
    return [answer](const Request& request, JSONOutput& output) {
        answer(output, request.get<Segments>("segments"), request.get<Date>("startedAt"), request.get<Date>("now"));
    };
}

/// An operation on one stored value, given as the argument `name`.
template <class Value, class Answer>
Operation on(const char* name, Answer answer) {
    return [name, answer](const Request& request, JSONOutput& output) {
        answer(output, request, request.get<Value>(name));
    };
}

void addSchedule(Operations& operations) {
    operations["Schedule.pomodoro"] = on<PomodoroConfig>(
        "config", [](auto& output, auto&, const auto& config) { encode(output, Schedule::pomodoro(config)); });
    operations["Schedule.deep"] = on<DeepConfig>(
        "config", [](auto& output, auto&, const auto& config) { encode(output, Schedule::deep(config)); });
    operations["Schedule.totalDuration"] = on<Segments>(
        "segments", [](auto& output, auto&, const auto& segments) { output.write(Schedule::totalDuration(segments)); });
    operations["Schedule.status"] = onPlan([](auto& output, const auto& segments, Date startedAt, Date now) {
        write(output, Schedule::status(segments, startedAt, now));
    });
    operations["Schedule.finishedWork"] = onPlan([](auto& output, const auto& segments, Date startedAt, Date now) {
        encode(output, Schedule::finishedWork(segments, startedAt, now));
    });
    operations["Schedule.focusedSeconds"] = onPlan([](auto& output, const auto& segments, Date startedAt, Date now) {
        output.write(Schedule::focusedSeconds(segments, startedAt, now));
    });
}

void addProfile(Operations& operations) {
    operations["Profile.segments"] =
        on<Profile>("profile", [](auto& output, auto&, const auto& profile) { encode(output, profile.segments()); });
    operations["Profile.hasDefaultTimings"] = on<Profile>(
        "profile", [](auto& output, auto&, const auto& profile) { output.write(profile.hasDefaultTimings()); });
    operations["Profile.resetTimings"] = on<Profile>("profile", [](auto& output, auto&, auto profile) {
        profile.resetTimings();
        encode(output, profile);
    });
}

void addActiveSession(Operations& operations) {
    operations["ActiveSession.status"] =
        on<ActiveSession>("session", [](auto& output, auto& request, const auto& session) {
            write(output, session.status(request.template get<Date>("at")));
        });
    operations["ActiveSession.isAllWorkDone"] =
        on<ActiveSession>("session", [](auto& output, auto& request, const auto& session) {
            output.write(session.isAllWorkDone(request.template get<Date>("at")));
        });
    operations["ActiveSession.remainingFraction"] =
        on<ActiveSession>("session", [](auto& output, auto& request, const auto& session) {
            output.write(session.remainingFraction(request.template get<Date>("at")));
        });
    operations["ActiveSession.plannedEnd"] = on<ActiveSession>(
        "session", [](auto& output, auto&, const auto& session) { encode(output, session.plannedEnd()); });
    operations["ActiveSession.exitWaitSeconds"] = on<ActiveSession>(
        "session", [](auto& output, auto&, const auto& session) { output.write(session.exitWaitSeconds()); });
    operations["SessionRecord.init"] =
        on<ActiveSession>("session", [](auto& output, auto& request, const auto& session) {
            encode(output, SessionRecord{session, request.template get<Date>("endedAt"),
                                         request.template get<SessionOutcome>("outcome"),
                                         request.template find<std::string>("exitReason")});
        });
}

} // namespace

void addSessionOperations(Operations& operations) {
    addSchedule(operations);
    addProfile(operations);
    addActiveSession(operations);
}

} // namespace velmorin::conformance
