#include "app/simulate/Scene.h"

#include "app/simulate/StateWriting.h"
#include "core/foundation/JSONCoding.h"
#include "core/phone/PhoneWire.h"

#include <algorithm>
#include <utility>

namespace velmorin {

namespace {

constexpr std::size_t nonceLength = 12;

} // namespace

Scene::Scene(Date start, Files& files, ProgramSetup setup)
    : m_setup{std::move(setup)}, m_desktop{start, files}, m_nextPID{SimulatedWorkspace::firstOwnPID} {
    m_desktop.relay.opener = [this](const std::string& topic, std::string_view sealed) -> std::optional<std::string> {
        notePairing();
        const auto key = m_phoneKeys.find(topic);
        if (key == m_phoneKeys.end()) return std::nullopt;
        const auto opened = PhoneWire::open(sealed, key->second, PhoneWire::command);
        return opened ? std::optional{std::string{opened->begin(), opened->end()}} : std::nullopt;
    };
}

void Scene::notePairing() {
    const auto pairing = program() ? program()->data().phoneLink().pairing() : std::nullopt;
    if (pairing) m_phoneKeys[pairing->commandTopic()] = pairing->key;
}

SimulatedProgram* Scene::program() {
    const auto living = std::ranges::find_if(m_programs, [](const auto& program) { return !program->hasEnded(); });
    return living == m_programs.end() ? nullptr : living->get();
}

void Scene::launch(LaunchedBy by) {
    LaunchOptions options;
    options.launchedByWatchdog = by == LaunchedBy::watchdog;
    const std::int32_t pid = m_nextPID++;
    m_desktop.workspace.add({pid, m_setup.bundleID, std::nullopt, ActivationPolicy::accessory});
    m_programs.push_back(std::make_unique<SimulatedProgram>(m_desktop, m_setup, options, pid));
    SimulatedProgram* const started = m_programs.back().get();
    // Not at once: the process is still at work when it asks to end. But before it can do anything else.
    started->onEnd = [this, started] { m_desktop.time.postNext([this, started] { bury(started); }); };
    started->launch();
}

bool Scene::crash() {
    SimulatedProgram* const living = program();
    if (living) bury(living);
    return living != nullptr;
}

void Scene::bury(const SimulatedProgram* program) {
    const std::int32_t pid = program->pid();
    std::erase_if(m_programs, [program](const auto& candidate) { return candidate.get() == program; });
    m_desktop.workspace.quit(pid);
}

bool Scene::sendFromPhone(std::string_view message) {
    const auto pairing = program() ? program()->data().phoneLink().pairing() : std::nullopt;
    if (!pairing) return false;
    const Bytes plaintext{message.begin(), message.end()};
    const auto sealed =
        PhoneWire::seal(plaintext, pairing->key, PhoneWire::status, m_desktop.random.bytes(nonceLength));
    m_desktop.relay.publish(pairing->statusTopic(), sealed.value_or(""));
    return true;
}

void Scene::tellState() {
    m_desktop.journal.tell("state", [this](JSONOutput& output) { writeState(output); });
}

void Scene::writeState(JSONOutput& output) {
    if (SimulatedProgram* const living = program()) {
        writeProgramState(output, living->controller(), living->data());
    } else {
        writeNoProgramState(output);
    }
    output.key("applications");
    output.beginArray();
    for (const auto& application : m_desktop.workspace.list()) {
        if (application.pid < SimulatedWorkspace::firstOwnPID) writeApplication(output, application);
    }
    output.endArray();
}

} // namespace velmorin
