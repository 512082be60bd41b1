#include "app/lock/LockProgram.h"

#include "app/composition/OwnProcess.h"
#include "app/engine/StateWriting.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace velmorin {

namespace {

std::string identifier(const Workspace::Application& application) {
    return application ? application->bundleIdentifier().value_or("unknown") : "nobody";
}

} // namespace

LockProgram::LockProgram(LinuxSeams& seams, LockOptions options, std::optional<Profile> profile, Print print)
    : m_seams{seams},
      m_options{std::move(options)},
      m_profile{std::move(profile)},
      m_print{std::move(print)},
      m_data{JSONStore{seams.directory, seams.files},
             {seams.clock, seams.timers, seams.random, seams.relay, m_appearance}},
      m_controller{m_data,
                   {seams.clock, seams.timers, seams.random, seams.workspace, seams.application, seams.sounds,
                    seams.shortcuts, seams.serviceManager, seams.childProcesses, m_appearance,
                    seams.places.companion("velmorin-browser-script").string()}},
      m_lifecycle{m_options.launch, m_controller, seams.workspace, seams.application},
      m_hotKey{*seams.connection, [this] {
                   // With an overlay on the screen it does nothing.
                   if (shows<Overlay::None>(*m_controller.overlay())) tell("hotKey");
               }} {
    m_appearance.apply(*m_data.settings());
    m_controller.autoReturnFromWarnings = m_options.returnsByItself;
    m_controller.watchdogArguments = LockOptions::forWatchdog(seams.directory);
    m_seams.onQuitRequest = [this] { askToQuit(); };
}

int LockProgram::run() {
    connect();
    launch();
    return m_seams.loop.run();
}

void LockProgram::show() {
    tell("show");
    tellSession();
}

void LockProgram::connect() {
    m_controller.onOverlayChange = [this](const OverlayState& state) {
        tell("overlay", [&state](JSONOutput& output) { writeOverlay(output, state); });
    };
    m_controller.onSessionBegan = [this](const ActiveSession& session) {
        tell("began", [&session](JSONOutput& output) { writeMember(output, "session", session); });
        if (m_data.settings()->lockPhoneToo) m_data.phoneLink().sendStart(session);
    };
    m_controller.onSessionEnded = [this](const ActiveSession& session) {
        tell("ending", [&session](JSONOutput& output) { writeMember(output, "session", session); });
        m_data.phoneLink().sendEnd(session);
    };
    if (m_options.tellsTicks) {
        m_controller.onTick = [this] {
            if (const auto& status = *m_controller.status())
                tell("tick", [&status](JSONOutput& output) {
                    output.key("status");
                    writeStatus(output, *status);
                });
        };
    }
    m_watches.push_back(m_controller.session().watch([this] { tellSession(); }));
    // Told later: the engine, which hears of it next, must not wait for that.
    const auto telling = [this](const char* event) {
        return [this, event](const Workspace::Application& application) {
            m_seams.loop.post(m_lifetime.guard([this, event, bundleID = identifier(application)] {
                tell(event, [&](JSONOutput& output) { writeMember(output, "bundleID", bundleID); });
            }));
        };
    };
    m_watches.push_back(m_seams.workspace.observeActivations(telling("front")));
    m_watches.push_back(m_seams.workspace.observeLaunches(telling("launched")));
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        m_watches.push_back(m_seams.loop.watchSignal(number, [this] { askToQuit(); }));
    OwnProcess::ignoreStops();
    m_commands = m_seams.loop.watchReadable(STDIN_FILENO, [this] {
        // At its end the session goes on.
        if (!readCommands(STDIN_FILENO, m_input)) m_commands.cancel();
    });
    listenToPipe();
}

void LockProgram::launch() {
    if (m_lifecycle.isAnotherInstanceRunning()) {
        m_seams.application.terminate();
        return;
    }
    if (m_data.phoneLink().pairing()) m_data.phoneLink().startListening();
    m_lifecycle.observePowerOff();
    m_lifecycle.resume();
    if (m_lifecycle.start() == Lifecycle::Start::quit) {
        m_seams.application.terminate();
        return;
    }
    if (m_profile && m_controller.isActive()) tell("profileIgnored");
    if (m_profile && !m_controller.isActive()) m_controller.start(*m_profile, m_options.intent);
    // Without a window there is nothing to stay for but a session, or the summary of one.
    if (!m_controller.isActive() && shows<Overlay::None>(*m_controller.overlay())) m_seams.application.terminate();
}

void LockProgram::askToQuit() {
    const bool quits = m_lifecycle.answerToQuit() == Lifecycle::QuitAnswer::quit;
    tell(quits ? "quit" : "stays");
    if (quits) m_seams.loop.quit(0);
}

bool LockProgram::readCommands(int descriptor, std::string& unread) {
    std::array<char, 4096> bytes{};
    const auto count = ::read(descriptor, bytes.data(), bytes.size());
    if (count <= 0) return false;
    unread.append(bytes.data(), static_cast<std::size_t>(count));
    for (auto end = unread.find('\n'); end != std::string::npos; end = unread.find('\n')) {
        const auto line = unread.substr(0, end);
        unread.erase(0, end + 1);
        obey(line);
    }
    return true;
}

/// A pipe in the store, for whoever has lost the terminal that the session was started from, or wants to speak to a
/// process that the watchdog has started.
void LockProgram::listenToPipe() {
    const auto path = m_seams.directory / "commands";
    ::unlink(path.c_str());
    if (::mkfifo(path.c_str(), S_IRUSR | S_IWUSR) != 0) return;
    // Open for writing too, so that it never ends.
    m_pipe = Descriptor{::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC)};
    if (!m_pipe.isOpen()) return;
    m_watches.push_back(
        m_seams.loop.watchReadable(m_pipe.number(), [this] { readCommands(m_pipe.number(), m_pipeInput); }));
}

void LockProgram::obey(const std::string& line) {
    constexpr std::string_view confirm = "confirm ";
    const auto& overlay = *m_controller.overlay();
    if (line == "return") {
        goBack();
    } else if (line == "exit") {
        m_controller.beginEmergencyExit();
    } else if (line == "cancel") {
        if (shows<Overlay::EmergencyExit>(overlay)) m_controller.cancelEmergencyExit();
    } else if (line.starts_with(confirm)) {
        m_controller.confirmEmergencyExit(line.substr(confirm.size()));
        if (m_controller.isActive()) tell("refused");
    } else if (line == "show") {
        tellSession();
    } else if (line == "quit") {
        askToQuit();
    } else if (!line.empty()) {
        tell("unknown", [&line](JSONOutput& output) { writeMember(output, "command", line); });
    }
}

/// From a warning only when its pause is over, as its button would.
void LockProgram::goBack() {
    const auto* warning = std::get_if<Overlay::Warning>(&*m_controller.overlay());
    if (warning == nullptr || warning->info.pauseEndsAt > m_seams.clock.now()) {
        tell("refused");
        return;
    }
    m_controller.returnToWork();
}

void LockProgram::tellSession() {
    tell("session", [this](JSONOutput& output) {
        const auto& session = *m_controller.session();
        writeMember(output, "isRunning", session.has_value());
        writeMember(output, "attempts", session ? session->attempts : 0);
        writeMember(output, "returns", session ? session->returns : 0);
        writeMember(output, "hidden", session ? session->hiddenBundleIDs : std::vector<std::string>{});
        output.key("overlay");
        output.beginObject();
        writeOverlay(output, *m_controller.overlay());
        output.endObject();
    });
}

void LockProgram::tell(std::string_view event, const Members& members) const {
    JSONOutput output;
    output.beginObject();
    writeMember(output, "at", m_seams.clock.now());
    writeMember(output, "event", event);
    if (members) members(output);
    output.endObject();
    if (const auto line = output.take()) m_print(*line);
}

} // namespace velmorin
