#include "app/simulate/Scenario.h"

#include "app/simulate/ScenarioReading.h"
#include "core/foundation/Calendar.h"
#include "core/foundation/JSONCoding.h"

#include <algorithm>
#include <utility>

namespace velmorin {

namespace {

constexpr double defaultStart = 800'000'000;
constexpr std::string_view ownBundleID = "com.kestrava.velmorin";

ProgramSetup readProgramSetup(const JSONArguments& setup, const Scenario::Options& options) {
    ProgramSetup program;
    program.directory = options.directory;
    program.tellsTicks = options.tellsTicks;
    program.bundleID = setup.has("self") ? setup.find<std::string>("self") : std::string{ownBundleID};
    if (const auto blocked = setup.find<std::vector<std::string>>("onlyBlock"))
        program.onlyBlock = AppPolicy::BundleIDs{blocked->begin(), blocked->end()};
    program.exitWaitOverride = setup.find<double>("exitWaitOverride");
    program.autoReturnFromWarnings = setup.find<bool>("autoReturnFromWarnings").value_or(false);
    program.watchdogArguments =
        setup.find<std::vector<std::string>>("watchdogArguments").value_or(program.watchdogArguments);
    return program;
}

void addApplications(const JSONArguments& setup, SimulatedWorkspace& workspace) {
    for (const auto& application : setup.objects("applications")) {
        if (!workspace.add(readApplication(application, workspace.unusedPID())))
            throw MalformedInput{"two applications have one process identifier"};
    }
    for (auto& bundleID : setup.find<std::vector<std::string>>("installed").value_or(std::vector<std::string>{}))
        workspace.installed.insert(std::move(bundleID));
    if (setup.hasValue("front") && !workspace.startInFront(readPID(setup, "front")))
        throw MalformedInput{"the application in front is not one of the applications"};
}

} // namespace

/// What a step does, and whether it means something where no process of the program runs.
struct Scenario::Kind {
    enum class Needs {
        program,     ///< a living one
        unlessEnded, ///< a living one, or one still to be started
        nothing,
    };
    Step play;
    Needs needs = Needs::program;
};

const std::map<std::string, Scenario::Kind, std::less<>>& Scenario::kinds() {
    constexpr auto nothing = Kind::Needs::nothing;
    constexpr auto unlessEnded = Kind::Needs::unlessEnded;
    static const std::map<std::string, Kind, std::less<>> kinds{
        {"start", {&Scenario::start}},
        {"advance", {&Scenario::advance, nothing}},
        {"sleep", {&Scenario::sleep, nothing}},
        {"setClock", {&Scenario::setClock, nothing}},
        {"launch", {&Scenario::launch, nothing}},
        {"activate", {&Scenario::activate, nothing}},
        {"unhide", {&Scenario::unhide, nothing}},
        {"quit", {&Scenario::quit, nothing}},
        {"front", {&Scenario::front, nothing}},
        {"browser", {&Scenario::browser, unlessEnded}},
        {"returnToWork", {&Scenario::returnToWork}},
        {"beginEmergencyExit", {&Scenario::beginEmergencyExit}},
        {"cancelEmergencyExit", {&Scenario::cancelEmergencyExit}},
        {"confirmEmergencyExit", {&Scenario::confirmEmergencyExit}},
        {"dismiss", {&Scenario::dismiss}},
        {"addThought", {&Scenario::addThought}},
        {"setThoughts", {&Scenario::setThoughts}},
        {"settings", {&Scenario::settings}},
        {"clearHistory", {&Scenario::clearHistory}},
        {"restoreHistory", {&Scenario::restoreHistory}},
        {"crash", {&Scenario::crash}},
        {"relaunch", {&Scenario::relaunch, nothing}},
        {"powerOff", {&Scenario::powerOff}},
        {"askToQuit", {&Scenario::askToQuit}},
        {"disk", {&Scenario::disk, unlessEnded}},
        {"pair", {&Scenario::pair}},
        {"unpair", {&Scenario::unpair}},
        {"relay", {&Scenario::relay, unlessEnded}},
        {"phone", {&Scenario::phone}},
        {"show", {&Scenario::show, nothing}},
    };
    return kinds;
}

Scenario::Scenario(Files& files, Options options, Sink sink)
    : m_files{files}, m_options{std::move(options)}, m_sink{std::move(sink)} {}

Scenario::~Scenario() = default;

void Scenario::play(const std::string& line) {
    const JSONArguments arguments{line};
    if (m_scene) {
        step(arguments);
    } else {
        setUp(arguments.object("setup"));
    }
    m_scene->notePairing();
    desktop().time.settle();
}

void Scenario::setUp(const JSONArguments& setup) {
    const Date start{setup.find<double>("now").value_or(defaultStart)};
    if (const auto zone = setup.find<std::string>("timeZone"); zone && !Calendar::inTimeZone(*zone))
        throw MalformedInput{"the argument \"timeZone\" names no time zone"};
    const auto launchedBy = setup.find<std::string>("launch").value_or("user");
    if (launchedBy != "user" && launchedBy != "watchdog" && launchedBy != "none")
        throw MalformedInput{"the argument \"launch\" is not \"user\", \"watchdog\" or \"none\""};
    auto scene = std::make_unique<Scene>(start, m_files, readProgramSetup(setup, m_options));
    addApplications(setup, scene->desktop().workspace);
    writeFiles(setup);
    m_scene = std::move(scene);
    desktop().journal.onEvent = m_sink;
    if (launchedBy != "none") m_scene->launch(launchedBy == "user" ? LaunchedBy::user : LaunchedBy::watchdog);
}

// Past the simulated disk: what was there before is no event.
void Scenario::writeFiles(const JSONArguments& setup) {
    m_files.makeDirectory(m_options.directory);
    if (setup.hasValue("files")) {
        const JSONArguments files = setup.object("files");
        for (const auto& name : files.keys()) {
            const auto file =
                std::filesystem::path{name}.filename() == name ? m_files.create(m_options.directory / name) : nullptr;
            if (!file || !file->write(files.get<std::string>(name)) || !file->close())
                throw MalformedInput{"the file \"" + name + "\" cannot be written"};
        }
    }
    if (!setup.hasValue("settings") && !setup.hasValue("language")) return;
    const JSONStore store{m_options.directory, m_files};
    AppSettings settings = store.load<AppSettings>(AppData::settingsFile).value_or(AppSettings{});
    if (setup.hasValue("settings")) settings = readSettings(settings, setup.raw("settings"));
    if (const auto language = setup.find<std::string>("language"))
        settings.language = fromRawValue<AppLanguage>(*language).value_or(AppLanguage::persian);
    store.save(settings, AppData::settingsFile);
}

void Scenario::step(const JSONArguments& step) {
    const auto name = step.get<std::string>("do");
    const auto kind = kinds().find(name);
    if (kind == kinds().end()) throw MalformedInput{"there is no step \"" + name + "\""};
    if (!m_scene->program() && (kind->second.needs == Kind::Needs::program ||
                                (kind->second.needs == Kind::Needs::unlessEnded && m_scene->hasLaunched()))) {
        tellIgnored(name);
    } else {
        (this->*kind->second.play)(step);
    }
}

void Scenario::tellIgnored(const std::string& step) {
    desktop().journal.tell("ignored", [&step](JSONOutput& output) {
        output.key("do");
        output.write(step);
    });
}

SimulatedProgram& Scenario::program() {
    return *m_scene->program();
}

void Scenario::passTime(double seconds) {
    VirtualTime& time = desktop().time;
    const double end = time.elapsed() + seconds;
    while (m_options.pace && time.nextDeadline() && *time.nextDeadline() <= end) {
        const double next = std::max(time.elapsed(), *time.nextDeadline());
        m_options.pace(next - time.elapsed());
        time.advanceUntil(next);
    }
    if (m_options.pace) m_options.pace(end - time.elapsed());
    time.advanceUntil(end);
}

void Scenario::start(const JSONArguments& step) {
    controller().start(readProfile(step.raw("profile")), step.find<std::string>("intent").value_or(""));
}

void Scenario::advance(const JSONArguments& step) {
    passTime(readDuration(step, "seconds"));
}

void Scenario::sleep(const JSONArguments& step) {
    const double seconds = readDuration(step, "seconds");
    if (m_options.pace) m_options.pace(seconds);
    desktop().time.sleep(seconds);
}

void Scenario::setClock(const JSONArguments& step) {
    desktop().time.setClock(step.get<double>("by"));
}

void Scenario::launch(const JSONArguments& step) {
    SimulatedWorkspace& workspace = desktop().workspace;
    const auto inFront = step.find<bool>("front").value_or(false);
    if (!workspace.launch(readApplication(step.object("app"), workspace.unusedPID()), inFront))
        throw MalformedInput{"a process with this identifier runs already"};
}

void Scenario::activate(const JSONArguments& step) {
    desktop().workspace.activate(readPID(step, "pid"));
}

void Scenario::unhide(const JSONArguments& step) {
    desktop().workspace.unhide(readPID(step, "pid"));
}

void Scenario::quit(const JSONArguments& step) {
    desktop().workspace.quit(readPID(step, "pid"));
}

void Scenario::front(const JSONArguments& step) {
    // Null is nobody; a step that names nobody at all was meant otherwise.
    if (step.raw("pid") == "null") {
        desktop().workspace.leaveFront();
    } else {
        desktop().workspace.activate(readPID(step, "pid"));
    }
}

void Scenario::browser(const JSONArguments& step) {
    desktop().browsers.behave(step.get<BrowserKind>("kind"), readBehaviour(step));
}

void Scenario::returnToWork(const JSONArguments&) {
    controller().returnToWork();
}

void Scenario::beginEmergencyExit(const JSONArguments&) {
    controller().beginEmergencyExit();
}

void Scenario::cancelEmergencyExit(const JSONArguments&) {
    controller().cancelEmergencyExit();
}

void Scenario::confirmEmergencyExit(const JSONArguments& step) {
    controller().confirmEmergencyExit(step.get<std::string>("reason"));
}

void Scenario::dismiss(const JSONArguments&) {
    controller().setOverlay(Overlay::None{});
}

void Scenario::addThought(const JSONArguments& step) {
    program().data().addThought(step.get<std::string>("text"));
}

void Scenario::setThoughts(const JSONArguments& step) {
    program().data().setThoughts(step.get<std::vector<Thought>>("thoughts"));
}

void Scenario::settings(const JSONArguments& step) {
    program().data().setSettings(readSettings(*program().data().settings(), step.raw("set")));
}

void Scenario::clearHistory(const JSONArguments&) {
    program().data().clearHistory();
}

void Scenario::restoreHistory(const JSONArguments&) {
    program().data().restoreClearedHistory();
}

void Scenario::crash(const JSONArguments&) {
    m_scene->crash();
}

void Scenario::relaunch(const JSONArguments& step) {
    m_scene->launch(step.find<bool>("watchdog").value_or(false) ? LaunchedBy::watchdog : LaunchedBy::user);
}

void Scenario::powerOff(const JSONArguments&) {
    program().announcePowerOff();
}

void Scenario::askToQuit(const JSONArguments&) {
    program().askToQuit();
}

void Scenario::disk(const JSONArguments& step) {
    desktop().disk.isFull = step.get<bool>("full");
}

void Scenario::pair(const JSONArguments&) {
    program().data().phoneLink().beginPairing();
}

void Scenario::unpair(const JSONArguments&) {
    program().data().phoneLink().disconnect();
}

void Scenario::relay(const JSONArguments& step) {
    desktop().relay.setUp(step.get<bool>("up"));
}

void Scenario::phone(const JSONArguments& step) {
    if (!m_scene->sendFromPhone(step.raw("status"))) tellIgnored("phone");
}

void Scenario::show(const JSONArguments&) {
    m_scene->tellState();
}

} // namespace velmorin
