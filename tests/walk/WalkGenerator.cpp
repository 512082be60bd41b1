#include "tests/walk/WalkGenerator.h"

#include "core/foundation/JSONCoding.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>
#include <vector>

namespace velmorin {

namespace {

constexpr std::int32_t roomForOpened = 50; // process identifiers

const std::array<std::string, 9> bundleIDs{"org.example.editor", "org.example.notes", "org.example.game",
                                           "org.example.mail",   "com.google.Chrome", "com.apple.Safari",
                                           "com.apple.finder",   "com.apple.dock",    "org.example.nowhere"};

std::string quoted(const std::string& text) {
    return encodeJSON(text).value_or("\"\"");
}

std::string number(std::size_t value) {
    return std::to_string(value);
}

} // namespace

/// A kind of step and how often it is drawn, against the others of its table.
struct WalkGenerator::Choice {
    std::size_t weight;
    WalkStep (WalkGenerator::*make)(Scene&);
};

template <std::size_t count>
WalkStep WalkGenerator::choose(const Choice (&choices)[count], Scene& scene) {
    const std::size_t total = std::accumulate(std::begin(choices), std::end(choices), std::size_t{0},
                                              [](std::size_t sum, const Choice& each) { return sum + each.weight; });
    std::size_t drawn = m_random.below(total);
    const Choice* choice = choices;
    while (drawn >= choice->weight)
        drawn -= (choice++)->weight;
    return (this->*choice->make)(scene);
}

WalkStep WalkGenerator::step(Scene& scene) {
    using Self = WalkGenerator;
    static constexpr Choice dead[]{{12, &Self::relaunch}, {3, &Self::advance},    {2, &Self::sleep},
                                   {2, &Self::setClock},  {2, &Self::activate},   {2, &Self::launch},
                                   {1, &Self::quit},      {1, &Self::addThought}, {1, &Self::disk}};
    static constexpr Choice idle[]{{10, &Self::start},         {2, &Self::dismiss},   {2, &Self::clearHistory},
                                   {2, &Self::restoreHistory}, {1, &Self::askToQuit}, {1, &Self::pair}};
    static constexpr Choice warned[]{
        {6, &Self::returnToWork}, {2, &Self::activate}, {2, &Self::beginExit}, {3, &Self::advance}};
    static constexpr Choice exiting[]{
        {3, &Self::cancelExit}, {4, &Self::untilWaitIsOver}, {3, &Self::confirmExit}, {1, &Self::beginExit}};
    static constexpr Choice any[]{
        {3, &Self::start},       {16, &Self::advance},    {4, &Self::sleep},        {5, &Self::setClock},
        {9, &Self::launch},      {16, &Self::activate},   {3, &Self::unhide},       {4, &Self::quit},
        {2, &Self::leaveFront},  {6, &Self::browser},     {3, &Self::returnToWork}, {3, &Self::beginExit},
        {1, &Self::cancelExit},  {1, &Self::confirmExit}, {1, &Self::dismiss},      {2, &Self::addThought},
        {2, &Self::setThoughts}, {3, &Self::settings},    {1, &Self::clearHistory}, {1, &Self::restoreHistory},
        {4, &Self::crash},       {2, &Self::relaunch},    {1, &Self::powerOff},     {2, &Self::askToQuit},
        {2, &Self::disk},        {2, &Self::pair},        {1, &Self::unpair},       {2, &Self::relay},
        {4, &Self::phone}};
    SimulatedProgram* const program = scene.program();
    if (!program) return choose(dead, scene);
    const OverlayState& overlay = *program->controller().overlay();
    const bool isGuided = m_random.isWithin(50);
    if (isGuided && !program->controller().isActive()) return choose(idle, scene);
    if (isGuided && shows<Overlay::Warning>(overlay)) return choose(warned, scene);
    if (isGuided && shows<Overlay::EmergencyExit>(overlay)) return choose(exiting, scene);
    return choose(any, scene);
}

std::string WalkGenerator::application(std::int32_t pid, const std::string& bundleID) {
    std::string text = "{\"pid\":" + std::to_string(pid);
    if (!m_random.isWithin(8)) text += ",\"bundleID\":" + quoted(bundleID);
    if (!m_random.isWithin(10)) text += R"(,"name":"App")";
    if (m_random.isWithin(10)) text += R"(,"policy":1)";
    if (m_random.isWithin(10)) text += R"(,"hidden":true)";
    if (m_random.isWithin(40)) text += R"(,"quits":"never")";
    return text + "}";
}

Walk WalkGenerator::setup() {
    Walk walk;
    const std::size_t count = m_random.below(6);
    for (std::size_t index = 0; index < count; ++index)
        walk.applications.push_back(application(static_cast<std::int32_t>(10 + index), m_random.pickFrom(bundleIDs)));
    walk.setup = "\"launch\":" + quoted(m_random.pick({"user", "user", "user", "watchdog", "none"}));
    walk.setup += R"(,"installed":["org.example.editor","org.example.game","com.apple.Safari"])";
    if (m_random.isWithin(10)) walk.setup += R"(,"onlyBlock":["org.example.game","com.apple.Safari"])";
    if (m_random.isWithin(15)) walk.setup += ",\"exitWaitOverride\":" + number(m_random.below(2) * 5);
    if (m_random.isWithin(10)) walk.setup += R"(,"autoReturnFromWarnings":true)";
    if (m_random.isWithin(50)) walk.setup += R"(,"settings":{"lockPhoneToo":true,"useFocusShortcuts":true})";
    if (m_random.isWithin(20)) walk.setup += R"(,"language":"de","watchdogArguments":["--more"])";
    if (m_random.isWithin(5)) walk.setup += R"(,"files":{"active-session.json":"{","history.json":"[1]"})";
    return walk;
}

std::string WalkGenerator::timings() {
    const auto minutes = [this] { return number(1 + m_random.below(3)); };
    return R"("pomodoro":{"workMinutes":)" + minutes() + R"(,"shortBreakMinutes":1,"longBreakMinutes":)" + minutes() +
           R"(,"cyclesBeforeLongBreak":)" + minutes() + R"(,"totalCycles":)" + number(1 + m_random.below(4)) +
           R"(},"deep":{"totalMinutes":)" + number(1 + m_random.below(9)) + R"(,"breakEveryMinutes":)" + minutes() +
           R"(,"breakMinutes":)" + minutes() + "}";
}

std::string WalkGenerator::allowedApps() {
    std::string list;
    for (const auto& bundleID : bundleIDs) {
        if (!m_random.isWithin(bundleID == "org.example.game" ? 5 : 40)) continue;
        list += (list.empty() ? "" : ",") + ("{\"bundleID\":" + quoted(bundleID)) + R"(,"name":"App"})";
    }
    return "[" + list + "]";
}

std::string WalkGenerator::profile() {
    std::string text = R"("profile":{"name":"Work","mode":)" + quoted(m_random.pick({"pomodoro", "deep"}));
    text += ",\"allowedApps\":" + allowedApps();
    if (m_random.isWithin(70)) text += R"(,"allowedDomains":["example.org"])";
    if (!m_random.isWithin(5)) text += "," + timings();
    return text + "}";
}

WalkStep WalkGenerator::start(Scene&) {
    return {"start", {}, profile() + ",\"intent\":" + quoted(m_random.pick({"write", " read \\n", "", "   "}))};
}

WalkStep WalkGenerator::advance(Scene& scene) {
    const auto* status = scene.program() ? &*scene.program()->controller().status() : nullptr;
    // Around the end of a segment, or into the next one.
    if (status && *status && m_random.isWithin(25)) {
        const double seconds = (*status)->remainingInSegment + m_random.pick({-1.0, 0.0, 0.5, 2.0, 5.0});
        return {"advance", WalkStep::Number{"seconds", std::clamp(seconds, 0.0, 600.0)}, {}};
    }
    // Long stretches are dear, and most of what can go wrong does so within seconds.
    const double seconds =
        m_random.isWithin(1)
            ? m_random.pick({300.0, 300.0, 600.0, 3600.0})
            : m_random.pick({0.0, 0.1, 0.25, 0.5, 0.75, 1.0, 1.0, 2.0, 2.5, 3.0, 3.0, 4.0, 6.0, 8.0, 15.0, 31.0, 61.0});
    return {"advance", WalkStep::Number{"seconds", seconds}, {}};
}

WalkStep WalkGenerator::untilWaitIsOver(Scene& scene) {
    const auto* exit = std::get_if<Overlay::EmergencyExit>(&*scene.program()->controller().overlay());
    const double wait = exit ? exit->waitUntil - scene.desktop().time.now() : 0.0;
    // A hair too early now and then. A clock that was set can leave hours, which nobody waits for.
    return {
        "sleep", WalkStep::Number{"seconds", std::clamp(wait - (m_random.isWithin(20) ? 0.5 : 0.0), 0.0, 600.0)}, {}};
}

WalkStep WalkGenerator::sleep(Scene&) {
    return {"sleep",
            WalkStep::Number{"seconds", m_random.pick({0.5, 1.0, 5.0, 45.0, 60.0, 90.0, 200.0, 290.0, 700.0, 90000.0})},
            {}};
}

WalkStep WalkGenerator::setClock(Scene&) {
    const double size = m_random.pick({0.5, 1.0, 2.0, 5.0, 30.0, 60.0, 60.0, 120.0, 400.0, 3600.0, 86400.0});
    return {"setClock", WalkStep::Number{"by", m_random.isWithin(50) ? size : -size}, {}};
}

WalkStep WalkGenerator::launch(Scene&) {
    m_nextPID += roomForOpened;
    return {"launch",
            {},
            "\"app\":" + application(m_nextPID, m_random.pickFrom(bundleIDs)) +
                (m_random.isWithin(60) ? ",\"front\":true" : "")};
}

/// Any process that runs, the program's own among them.
std::string WalkGenerator::pidOf(Scene& scene) {
    const auto applications = scene.desktop().workspace.runningApplications();
    const auto pid = applications.empty() ? 1 : m_random.pickFrom(applications)->processIdentifier();
    return "\"pid\":" + std::to_string(pid);
}

WalkStep WalkGenerator::activate(Scene& scene) {
    return {"activate", {}, pidOf(scene)};
}

WalkStep WalkGenerator::unhide(Scene& scene) {
    return {"unhide", {}, pidOf(scene)};
}

WalkStep WalkGenerator::quit(Scene& scene) {
    const auto applications = scene.desktop().workspace.runningApplications();
    std::vector<std::int32_t> others;
    for (const auto& each : applications) {
        if (each->processIdentifier() < SimulatedWorkspace::firstOwnPID) others.push_back(each->processIdentifier());
    }
    // The program itself ends by a crash or when it is asked to.
    return {"quit", {}, "\"pid\":" + std::to_string(others.empty() ? 1 : m_random.pickFrom(others))};
}

WalkStep WalkGenerator::leaveFront(Scene&) {
    return {"front", {}, "\"pid\":null"};
}

std::string WalkGenerator::tabs() {
    std::string list;
    const std::size_t count = m_random.below(4);
    for (std::size_t index = 0; index < count; ++index) {
        const auto url =
            m_random.pick({"https://example.org/a", "https://bad.example/", "about:blank", "", "file:///a"});
        list += (index == 0 ? "" : ",") + ("[\"" + number(index + 1)) + "\"," + quoted(url) + "]";
    }
    return R"({"tabs":[)" + list + "]}";
}

WalkStep WalkGenerator::browser(Scene&) {
    std::string details = "\"kind\":" + quoted(m_random.pick({"chrome", "safari"}));
    const std::size_t dice = m_random.below(10);
    details += ",\"answers\":" + (dice == 0 ? "\"denied\"" : dice == 1 ? "\"noAnswer\"" : tabs());
    if (m_random.isWithin(30)) details += ",\"stubborn\":true";
    const double delay = m_random.pick({0.0, 0.1, 0.2, 1.0, 2.5, 7.0, 12.0, 95.0});
    return {"browser", WalkStep::Number{"after", delay}, details};
}

} // namespace velmorin
