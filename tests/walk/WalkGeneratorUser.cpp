// The steps of the user in the program, those of the phone, and the fates of the process and its disk.

#include "core/foundation/JSONCoding.h"
#include "tests/walk/WalkGenerator.h"

#include <vector>

namespace velmorin {

WalkStep WalkGenerator::returnToWork(Scene&) {
    return {"returnToWork", {}, {}};
}

WalkStep WalkGenerator::beginExit(Scene&) {
    return {"beginEmergencyExit", {}, {}};
}

WalkStep WalkGenerator::cancelExit(Scene&) {
    return {"cancelEmergencyExit", {}, {}};
}

WalkStep WalkGenerator::confirmExit(Scene&) {
    return {"confirmEmergencyExit",
            {},
            m_random.isWithin(80) ? R"("reason":"a good reason indeed")" : R"("reason":"             abc")"};
}

WalkStep WalkGenerator::dismiss(Scene&) {
    return {"dismiss", {}, {}};
}

WalkStep WalkGenerator::addThought(Scene&) {
    return {"addThought", {}, m_random.isWithin(80) ? R"("text":" call home ")" : R"("text":" \n ")"};
}

/// The list with one thought ticked off, changed or taken away.
WalkStep WalkGenerator::setThoughts(Scene& scene) {
    std::vector<Thought> thoughts = *scene.program()->data().thoughts();
    if (!thoughts.empty()) {
        const std::size_t index = m_random.below(thoughts.size());
        switch (m_random.below(3)) {
        case 0: thoughts[index].done = !thoughts[index].done; break;
        case 1: thoughts[index].text += "!"; break;
        default: thoughts.erase(thoughts.begin() + static_cast<std::ptrdiff_t>(index));
        }
    }
    return {"setThoughts", {}, "\"thoughts\":" + encodeJSON(thoughts).value_or("[]")};
}

WalkStep WalkGenerator::settings(Scene&) {
    const auto* const changes =
        m_random.pick({R"({"lockPhoneToo":true})", R"({"lockPhoneToo":false})", R"({"language":"en"})",
                       R"({"language":"fa"})", R"({"useFocusShortcuts":true,"focusOnShortcut":""})", R"({})"});
    return {"settings", {}, std::string{"\"set\":"} + changes};
}

WalkStep WalkGenerator::clearHistory(Scene&) {
    return {"clearHistory", {}, {}};
}

WalkStep WalkGenerator::restoreHistory(Scene&) {
    return {"restoreHistory", {}, {}};
}

WalkStep WalkGenerator::crash(Scene&) {
    return {"crash", {}, {}};
}

WalkStep WalkGenerator::relaunch(Scene&) {
    return {"relaunch", {}, m_random.isWithin(60) ? "\"watchdog\":true" : "\"watchdog\":false"};
}

WalkStep WalkGenerator::powerOff(Scene&) {
    return {"powerOff", {}, {}};
}

WalkStep WalkGenerator::askToQuit(Scene&) {
    return {"askToQuit", {}, {}};
}

WalkStep WalkGenerator::disk(Scene& scene) {
    return {"disk", {}, scene.desktop().disk.isFull ? "\"full\":false" : "\"full\":true"};
}

WalkStep WalkGenerator::pair(Scene&) {
    return {"pair", {}, {}};
}

WalkStep WalkGenerator::unpair(Scene&) {
    return {"unpair", {}, {}};
}

WalkStep WalkGenerator::relay(Scene&) {
    m_isRelayUp = !m_isRelayUp;
    return {"relay", {}, m_isRelayUp ? "\"up\":true" : "\"up\":false"};
}

WalkStep WalkGenerator::phone(Scene& scene) {
    AppData& data = scene.program()->data();
    const PairingState pairing = *data.phoneLink().pairingState();
    if (pairing == PairingState::notPaired && m_random.isWithin(80)) return pair(scene);
    if (pairing == PairingState::waitingForPhone && m_random.isWithin(80))
        return {"phone", {}, R"("status":{"type":"hello"})"};
    if (m_random.isWithin(30)) return phoneThought(scene);
    const auto& session = *scene.program()->controller().session();
    const std::string id = session ? session->id.text() : "00000000-0000-4000-8000-000000000001";
    const std::string type = m_random.pick({"locked", "released", "notReady", "hello", "unheardOf"});
    return {"phone", {}, R"("status":{"type":")" + type + R"(","id":")" + id + "\"}"};
}

/// One that is known here, or one that is not, newer or older than what is.
WalkStep WalkGenerator::phoneThought(Scene& scene) {
    const auto& thoughts = *scene.program()->data().thoughts();
    const bool isKnown = !thoughts.empty() && m_random.isWithin(60);
    const std::string id = isKnown ? m_random.pickFrom(thoughts).id.text() : "00000000-0000-4000-8000-000000000002";
    const double moment = scene.desktop().time.now().secondsSince1970();
    const auto number = [](double value) { return encodeJSON(value).value_or("0"); };
    return {"phone",
            {},
            R"("status":{"type":"thought","id":")" + id + R"(","text":"milk","createdAt":)" + number(moment - 3600) +
                ",\"updatedAt\":" + number(moment + m_random.pick({-600.0, 0.0, 600.0})) +
                (m_random.isWithin(30) ? ",\"deleted\":true}" : "}")};
}

} // namespace velmorin
