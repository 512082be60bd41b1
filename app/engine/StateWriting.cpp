#include "app/engine/StateWriting.h"

namespace velmorin {

void writeOverlay(JSONOutput& output, const OverlayState& state) {
    writeMember(output, "state", name(state));
    if (const auto* warning = std::get_if<Overlay::Warning>(&state)) {
        writeMember(output, "target", warning->info.target);
        writeMember(output, "attempt", warning->info.attempt);
        writeMember(output, "startedAt", warning->info.startedAt);
        writeMember(output, "pauseEndsAt", warning->info.pauseEndsAt);
    } else if (const auto* exit = std::get_if<Overlay::EmergencyExit>(&state)) {
        writeMember(output, "waitUntil", exit->waitUntil);
    } else if (const auto* finished = std::get_if<Overlay::Finished>(&state)) {
        writeMember(output, "record", finished->record);
    }
}

void writeStatus(JSONOutput& output, const ScheduleStatus& status) {
    output.beginObject();
    writeMember(output, "segmentIndex", status.segmentIndex);
    writeMember(output, "kind", status.kind);
    writeMember(output, "remainingInSegment", status.remainingInSegment);
    writeMember(output, "remainingTotal", status.remainingTotal);
    writeMember(output, "isFinished", status.isFinished);
    writeMember(output, "isLocked", status.isLocked());
    output.endObject();
}

} // namespace velmorin
