#include "tests/walk/WalkSearch.h"

#include "tests/walk/WalkGenerator.h"
#include "tests/walk/WalkShrinker.h"

#include <string_view>
#include <utility>

namespace velmorin {

namespace {

std::string table(std::string_view title, const std::map<std::string, std::size_t>& counts) {
    std::string text = std::string{title} + ":";
    for (const auto& [name, count] : counts)
        text += " " + name + " " + std::to_string(count);
    return text + "\n";
}

/// Everything that a step can be, and of what happens the half that a walk reaches only if it gets deep.
constexpr std::string_view neededActions[]{"start",
                                           "advance",
                                           "sleep",
                                           "setClock",
                                           "launch",
                                           "activate",
                                           "unhide",
                                           "quit",
                                           "front",
                                           "browser",
                                           "returnToWork",
                                           "dismiss",
                                           "beginEmergencyExit",
                                           "cancelEmergencyExit",
                                           "confirmEmergencyExit",
                                           "addThought",
                                           "setThoughts",
                                           "settings",
                                           "clearHistory",
                                           "restoreHistory",
                                           "crash",
                                           "relaunch",
                                           "powerOff",
                                           "askToQuit",
                                           "disk",
                                           "pair",
                                           "unpair",
                                           "relay",
                                           "phone"};
constexpr std::string_view neededOverlays[]{"warning", "emergencyExit", "finished",
                                            "none",    "lockedBreak",   "backToWork"};
constexpr std::string_view neededEvents[]{"hide",   "unhide",     "terminate",    "activate", "open",
                                          "script", "saveFailed", "sessionEnded", "shortcut", "terminateApplication",
                                          "post",   "listen",     "ignored"};

} // namespace

void WalkStatistics::count(const WalkStep& step) {
    ++steps;
    ++actions[step.action];
}

void WalkStatistics::count(const SimulatedEvent& event) {
    ++events[event.name];
    if (event.name != "overlay") return;
    constexpr std::size_t start = std::string_view{"\"state\":\""}.size();
    ++overlays[event.details.substr(start, event.details.find('"', start) - start)];
}

std::string WalkStatistics::text() const {
    return std::to_string(walks) + " walks, " + std::to_string(steps) + " steps\n" + table("steps", actions) +
           table("overlays", overlays) + table("events", events);
}

std::vector<std::string> WalkStatistics::missing() const {
    std::vector<std::string> missing;
    const auto need = [&missing](const auto& names, const auto& counts) {
        for (const auto name : names) {
            if (!counts.contains(std::string{name})) missing.emplace_back(name);
        }
    };
    need(neededActions, actions);
    need(neededOverlays, overlays);
    need(neededEvents, events);
    return missing;
}

std::string Finding::text() const {
    return "invariant " + std::to_string(static_cast<std::size_t>(violation.invariant)) +
           " (docs/invariants.md): " + violation.what + "\nwalk " + std::to_string(number) + ", " +
           std::to_string(foundSteps) + " steps; as small as it gets, for velmorin-simulate:\n" + walk.text();
}

std::optional<Finding> search(const SearchOptions& options, WalkStatistics& statistics) {
    for (std::size_t number = 0; number < options.walks; ++number) {
        WalkGenerator generator{options.seed * 1'000'003 + number};
        WalkPlayer player{options.probe};
        player.onEvent = [&statistics](const SimulatedEvent& event) { statistics.count(event); };
        Walk walk = generator.setup();
        player.setUp(walk);
        while (!player.violation() && walk.steps.size() < options.stepsEach) {
            walk.steps.push_back(generator.step(player.scene()));
            statistics.count(walk.steps.back());
            player.play(walk.steps.back());
        }
        ++statistics.walks;
        if (!player.violation()) continue;
        const Invariant broken = player.violation()->invariant;
        const std::size_t foundSteps = walk.steps.size();
        walk = shrunk(std::move(walk), [&](const Walk& smaller) {
            const auto violation = play(smaller, options.probe);
            return violation && violation->invariant == broken;
        });
        return Finding{walk, *play(walk, options.probe), number, foundSteps};
    }
    return std::nullopt;
}

} // namespace velmorin
