#include "tests/engine/EnforcementTest.h"

#include "core/foundation/JSONMembers.h"

#include <algorithm>
#include <utility>

namespace velmorin {

void EnforcementTest::speak(AppLanguage language) {
    AppSettings settings = *data().settings();
    settings.language = language;
    data().setSettings(std::move(settings));
}

Profile EnforcementTest::allowing(const std::vector<std::string>& bundleIDs) {
    Profile made{"Work", SessionMode::pomodoro};
    for (const auto& bundleID : bundleIDs)
        made.allowedApps.push_back({bundleID, "Allowed"});
    return made;
}

void EnforcementTest::startWithEditorAndGame(SessionMode mode) {
    addEditorAndGame();
    startSession(profile(mode));
    forgetEvents();
}

void EnforcementTest::endSession() {
    controller().beginEmergencyExit();
    controller().confirmEmergencyExit("the house is on fire");
    settle();
    ASSERT_FALSE(controller().isActive());
}

const WarningInfo* EnforcementTest::warning() {
    const auto* shown = std::get_if<Overlay::Warning>(&overlay());
    return shown ? &shown->info : nullptr;
}

std::optional<std::int64_t> EnforcementTest::retries(std::int32_t pid) {
    const auto& all = controller().terminateRetries();
    const auto found = all.find(pid);
    return found == all.end() ? std::nullopt : std::optional{found->second};
}

std::size_t EnforcementTest::times(std::string_view event, std::int32_t pid) const {
    const auto all = events(event);
    return static_cast<std::size_t>(std::ranges::count(all, "\"pid\":" + std::to_string(pid)));
}

std::size_t EnforcementTest::logged(std::string_view line) const {
    const auto lines = log();
    return static_cast<std::size_t>(std::ranges::count(lines, line));
}

void EnforcementTest::addBrowser(BrowserKind kind) {
    addApplication(kind == BrowserKind::chrome ? chrome : safari, bundleID(kind), displayName(kind));
}

void EnforcementTest::answer(BrowserKind kind, SimulatedBrowsers::Says says, double delay) {
    desktop().browsers.behave(kind, {std::move(says), delay});
}

std::vector<std::string> EnforcementTest::scripts(std::string_view what, const std::string& detail) const {
    std::vector<std::string> found;
    for (const auto& details : events("script")) {
        const JSONMembers members = *JSONMembers::parse("{" + details + "}");
        if (members.get<std::string>("what") != what) continue;
        const auto value = detail == "timeout" ? std::to_string(members.get<std::int64_t>(detail).value_or(0))
                                               : members.get<std::string>(detail).value_or("?");
        found.push_back(members.get<std::string>("kind").value_or("?") + " " + value);
    }
    return found;
}

} // namespace velmorin
