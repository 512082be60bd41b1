#include "tests/support/EngineTest.h"

#include <algorithm>
#include <utility>

namespace velmorin {

namespace {

const std::filesystem::path directory = "/data/Velmorin";

std::string bundleIDOf(std::string_view name) {
    return "org.example." + std::string{name};
}

} // namespace

EngineTest::EngineTest() {
    setup.directory = directory;
    setup.bundleID = "com.kestrava.velmorin";
}

Scene& EngineTest::scene() {
    if (!m_scene) {
        m_scene = std::make_unique<Scene>(startOfScene, *disk, setup);
        m_scene->desktop().journal.onEvent = [this](const SimulatedEvent& event) {
            m_events.push_back(event);
            if (onEvent) onEvent(event);
        };
    }
    return *m_scene;
}

SimulatedDesktop& EngineTest::desktop() {
    return scene().desktop();
}

void EngineTest::addApplication(std::int32_t pid, std::string_view bundleID, std::string_view name) {
    ASSERT_TRUE(desktop().workspace.add({pid, std::string{bundleID}, std::string{name}}));
}

void EngineTest::addEditorAndGame() {
    addApplication(editor, bundleIDOf("editor"), "Editor");
    addApplication(game, bundleIDOf("game"), "Game");
    desktop().workspace.startInFront(editor);
}

std::int32_t EngineTest::start(std::string_view bundleID, QuitManners quits, bool inFront) {
    SimulatedApplicationInfo info;
    info.pid = desktop().workspace.unusedPID();
    info.bundleID = std::string{bundleID};
    info.name = "Newcomer";
    info.quits = quits;
    const std::int32_t pid = info.pid;
    desktop().workspace.launch(std::move(info), inFront);
    settle();
    return pid;
}

bool EngineTest::isHidden(std::int32_t pid) {
    const auto list = desktop().workspace.list();
    const auto found = std::ranges::find(list, pid, &SimulatedApplicationInfo::pid);
    return found != list.end() && found->isHidden;
}

std::optional<std::int32_t> EngineTest::front() {
    const auto application = desktop().workspace.frontmostApplication();
    return application ? std::optional{application->processIdentifier()} : std::nullopt;
}

Profile EngineTest::profile(SessionMode mode, std::vector<std::string> alsoAllowed, std::vector<std::string> domains) {
    Profile made{"Work", mode};
    made.allowedApps.push_back({bundleIDOf("editor"), "Editor"});
    for (auto& bundleID : alsoAllowed)
        made.allowedApps.push_back({std::move(bundleID), "Other"});
    made.allowedDomains = std::move(domains);
    return made;
}

ActiveSession EngineTest::leaveSession(std::vector<Segment> plan, double elapsed) {
    ActiveSession left{"Work",          SessionMode::pomodoro,  "write", now() - elapsed,
                       std::move(plan), {bundleIDOf("editor")}, {}};
    writeFile(SessionController::sessionFile, *encodeJSON(left));
    return left;
}

void EngineTest::startSession(const Profile& profile) {
    if (!scene().program()) launch();
    controller().start(profile, "write");
    settle();
    advance(3);
}

void EngineTest::run(std::vector<Segment> plan, double elapsed) {
    leaveSession(std::move(plan), elapsed);
    launch();
    forgetEvents();
}

void EngineTest::endEarly() {
    controller().beginEmergencyExit();
    controller().confirmEmergencyExit(reason);
}

std::vector<std::string> EngineTest::events(std::string_view name) const {
    std::vector<std::string> found;
    for (const auto& event : m_events) {
        if (event.name == name) found.push_back(event.details);
    }
    return found;
}

std::vector<std::string> EngineTest::eventNames() const {
    std::vector<std::string> names;
    std::ranges::transform(m_events, std::back_inserter(names), &SimulatedEvent::name);
    return names;
}

std::vector<std::string> EngineTest::log() const {
    std::vector<std::string> lines;
    for (const auto& event : m_events) {
        if (event.name != "log") continue;
        const JSONMembers members = *JSONMembers::parse("{" + event.details + "}");
        lines.push_back(members.get<std::string>("text").value_or(""));
    }
    return lines;
}

std::size_t EngineTest::saves(std::string_view name) const {
    const std::string prefix = "\"file\":\"" + std::string{name} + "\"";
    const auto saved = events("save");
    return static_cast<std::size_t>(
        std::ranges::count_if(saved, [&prefix](const auto& details) { return details.starts_with(prefix); }));
}

std::optional<std::string> EngineTest::file(std::string_view name) const {
    const auto found = files.contents.find(directory / name);
    return found == files.contents.end() ? std::nullopt : std::optional{found->second};
}

void EngineTest::writeFile(std::string_view name, std::string text) {
    files.contents[directory / name] = std::move(text);
}

} // namespace velmorin
