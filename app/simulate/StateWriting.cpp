#include "app/simulate/StateWriting.h"

#include "app/engine/StateWriting.h"

namespace velmorin {

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
