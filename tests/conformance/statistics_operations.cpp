#include "core/foundation/Calendar.h"
#include "core/session/ProjectSlots.h"
#include "core/session/StatsSummary.h"
#include "tests/conformance/Operations.h"

#include <string>
#include <vector>

namespace velmorin {

// Summaries are never stored; here they are described for the answer.

constexpr auto fields(std::type_identity<ProjectTotal>) {
    return std::tuple{field("name", &ProjectTotal::name), field("seconds", &ProjectTotal::seconds),
                      field("sessions", &ProjectTotal::sessions)};
}

namespace conformance {

namespace {

using Records = std::vector<SessionRecord>;

void write(JSONOutput& output, const DaySegment& segment) {
    output.beginObject();
    output.key("id");
    output.write(segment.id());
    output.key("day");
    encode(output, segment.day);
    output.key("project");
    output.write(segment.project);
    output.key("startMinutes");
    output.write(segment.startMinutes);
    output.key("endMinutes");
    output.write(segment.endMinutes);
    output.endObject();
}

void write(JSONOutput& output, const StatsSummary& summary) {
    output.beginObject();
    output.key("records");
    output.beginArray();
    for (const auto* record : summary.records)
        encode(output, *record);
    output.endArray();
    output.key("focusedSeconds");
    output.write(summary.focusedSeconds);
    output.key("sessions");
    output.write(summary.sessions);
    output.key("rounds");
    output.write(summary.rounds);
    output.key("returns");
    output.write(summary.returns);
    output.key("byProject");
    encode(output, summary.byProject);
    output.key("days");
    encode(output, summary.days);
    output.key("segments");
    output.beginArray();
    for (const auto& segment : summary.segments)
        write(output, segment);
    output.endArray();
    output.endObject();
}

} // namespace

void addStatisticsOperations(Operations& operations) {
    operations["StatsSummary.init"] = [](const Request& request, JSONOutput& output) {
        const auto records = request.get<Records>("records");
        write(output,
              StatsSummary{records, request.get<StatsPeriod>("period"), request.get<Date>("now"), calendarOf(request)});
    };
    operations["ProjectSlots.init"] = [](const Request& request, JSONOutput& output) {
        encode(output, ProjectSlots{request.get<Records>("records")}.names);
    };
}

} // namespace conformance

} // namespace velmorin
