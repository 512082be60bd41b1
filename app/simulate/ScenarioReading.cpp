#include "app/simulate/ScenarioReading.h"

#include "core/foundation/JSONCoding.h"

#include <cmath>
#include <limits>

namespace velmorin {

double readDuration(const JSONArguments& step, const std::string& name) {
    const double seconds = step.get<double>(name);
    if (!std::isfinite(seconds) || seconds < 0) throw MalformedInput{"the argument \"" + name + "\" is negative"};
    return seconds;
}

std::int32_t readPID(const JSONArguments& step, const std::string& name) {
    const auto pid = step.get<std::int64_t>(name);
    if (pid < 1 || pid > std::numeric_limits<std::int32_t>::max())
        throw MalformedInput{"the argument \"" + name + "\" is no process identifier"};
    return static_cast<std::int32_t>(pid);
}

SimulatedApplicationInfo readApplication(const JSONArguments& step, std::int32_t unusedPID) {
    SimulatedApplicationInfo info;
    info.pid = step.hasValue("pid") ? readPID(step, "pid") : unusedPID;
    if (info.pid >= SimulatedWorkspace::firstOwnPID) throw MalformedInput{"the argument \"pid\" is too large"};
    info.bundleID = step.find<std::string>("bundleID");
    info.name = step.find<std::string>("name");
    const auto policy = step.find<std::int64_t>("policy").value_or(0);
    if (policy < 0 || policy > 2) throw MalformedInput{"the argument \"policy\" is not 0, 1 or 2"};
    info.policy = static_cast<ActivationPolicy>(policy);
    info.isHidden = step.find<bool>("hidden").value_or(false);
    info.quits = step.find<QuitManners>("quits").value_or(QuitManners::politely);
    return info;
}

SimulatedBrowsers::Behaviour readBehaviour(const JSONArguments& step) {
    SimulatedBrowsers::Behaviour behaviour;
    if (step.hasValue("after")) behaviour.delay = readDuration(step, "after");
    behaviour.isStubborn = step.find<bool>("stubborn").value_or(false);
    const auto word = decodeJSON<std::string>(step.raw("answers"));
    if (word == "denied") {
        behaviour.says = SimulatedBrowsers::Denied{};
    } else if (word == "noAnswer") {
        behaviour.says = SimulatedBrowsers::NoAnswer{};
    } else {
        const JSONArguments answers = step.object("answers");
        SimulatedBrowsers::Tabs tabs;
        for (const auto& tab : answers.get<std::vector<std::vector<std::string>>>("tabs")) {
            if (tab.size() != 2) throw MalformedInput{"a tab is not a window and an address"};
            tabs.push_back({tab[0], tab[1]});
        }
        behaviour.says = std::move(tabs);
        behaviour.isStubborn = behaviour.isStubborn || answers.find<bool>("stubborn").value_or(false);
    }
    return behaviour;
}

Profile readProfile(const std::string& json) {
    return readOver(Profile{"", SessionMode::pomodoro}, json, "profile");
}

AppSettings readSettings(const AppSettings& base, const std::string& json) {
    return readOver(base, json, "set of settings");
}

} // namespace velmorin
