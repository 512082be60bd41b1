#include "app/simulate/StateWriting.h"

#include "core/foundation/JSONCoding.h"

#include <optional>
#include <string>

namespace velmorin {

namespace {

template <class Value>
void writeMember(JSONOutput& output, std::string_view key, const Value& value) {
    output.key(key);
    encode(output, value);
}

template <class Value>
void writeMember(JSONOutput& output, std::string_view key, const std::optional<Value>& value) {
    output.key(key);
    if (value) {
        encode(output, *value);
    } else {
        output.writeNull();
    }
}

} // namespace

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

void writeApplication(JSONOutput& output, const SimulatedApplicationInfo& application) {
    output.beginObject();
    writeMember(output, "pid", std::int64_t{application.pid});
    writeMember(output, "bundleID", application.bundleID);
    writeMember(output, "name", application.name);
    writeMember(output, "policy", static_cast<std::int64_t>(application.policy));
    writeMember(output, "hidden", application.isHidden);
    writeMember(output, "quits", application.quits);
    output.endObject();
}

void writeProgramState(JSONOutput& output, SessionController& controller, AppData& data) {
    const auto& session = *controller.session();
    const auto& status = *controller.status();
    writeMember(output, "session", session);
    output.key("status");
    if (status) {
        writeStatus(output, *status);
    } else {
        output.writeNull();
    }
    output.key("overlay");
    output.beginObject();
    writeOverlay(output, *controller.overlay());
    output.endObject();
    writeMember(output, "attempts", session ? session->attempts : 0);
    writeMember(output, "returns", session ? session->returns : 0);
    writeMember(output, "hiddenBundleIDs", session ? session->hiddenBundleIDs : std::vector<std::string>{});
    writeMember(output, "deniedBrowsers",
                std::vector<std::string>{controller.deniedBrowsers().begin(), controller.deniedBrowsers().end()});
    writeMember(output, "suppressAttemptsUntil", controller.suppressAttemptsUntil());
    writeMember(output, "history", *data.history());
    writeMember(output, "thoughts", *data.thoughts());
    writeMember(output, "pairingState", *data.phoneLink().pairingState());
    writeMember(output, "lockState", *data.phoneLink().lockState());
}

void writeNoProgramState(JSONOutput& output) {
    for (const auto* key : {"session", "status", "overlay", "attempts", "returns", "hiddenBundleIDs", "deniedBrowsers",
                            "suppressAttemptsUntil", "history", "thoughts", "pairingState", "lockState"}) {
        output.key(key);
        output.writeNull();
    }
}

} // namespace velmorin
