// The contracts of the machine's seams on the simulated desktop: time, programs, jobs, sounds, the relay and chance.

#include "core/foundation/JSONMembers.h"
#include "core/foundation/RawValue.h"
#include "tests/contracts/ChildProcessesContract.h"
#include "tests/contracts/InstalledApplicationsContract.h"
#include "tests/contracts/RandomContract.h"
#include "tests/contracts/RelayTransportContract.h"
#include "tests/contracts/ServiceManagerContract.h"
#include "tests/contracts/ShortcutsContract.h"
#include "tests/contracts/SimulatedBench.h"
#include "tests/contracts/SoundsContract.h"
#include "tests/contracts/TimeContract.h"

#include <utility>

namespace velmorin {
namespace {

class SimulatedTimeBench final : public SimulatedBench<TimeBench> {
public:
    Clock& clock() override { return desktop.time; }
    Timers& timers() override { return desktop.time; }
    void stall(double seconds) override {
        // The machine sleeps, and nothing has been called yet when it wakes.
        desktop.time.setClock(seconds);
        m_stalled += seconds;
    }
    bool setClock(double by) override {
        desktop.time.setClock(by);
        return true;
    }
    void settle() override { wake(0); }
    void wait(double seconds) override { wake(seconds); }

private:
    void wake(double seconds) {
        desktop.time.setClock(-m_stalled);
        desktop.time.sleep(std::exchange(m_stalled, 0));
        desktop.time.advance(seconds);
    }

    double m_stalled = 0; ///< seconds for which nothing could be called
};

/// The scripts for browsers are the only programs here, and what a browser says is what they write.
class SimulatedChildProcessesBench final : public SimulatedBench<ChildProcessesBench> {
public:
    ChildProcesses& childProcesses() override { return desktop.browsers; }
    Program succeeding(int number) override {
        const auto kind = allCases<BrowserKind>()[static_cast<std::size_t>(number - 1)];
        const std::string address = "https://example.org/" + std::to_string(number);
        desktop.browsers.behave(kind, {SimulatedBrowsers::Tabs{{"1", address}}});
        return script(kind, {0, "1|||" + address + "\n", ""});
    }
    Program failing() override {
        desktop.browsers.behave(BrowserKind::safari, {SimulatedBrowsers::Denied{}});
        return script(BrowserKind::safari, {1, "", "execution error: Not authorized to send Apple events. (-1743)"});
    }
    Program lasting(double seconds) override {
        desktop.browsers.behave(BrowserKind::chrome, {SimulatedBrowsers::Tabs{}, seconds});
        return script(BrowserKind::chrome, {});
    }
    Program missing() override { return {"/nowhere/at/all", {}, {}}; }
    std::optional<Program> tracing(double) override { return std::nullopt; }
    std::size_t traces() override { return 0; }

private:
    static Program script(BrowserKind kind, ScriptResult result) {
        return {SimulatedBrowsers::scriptTool, {"-e", BrowserScripts::listTabs(kind)}, std::move(result)};
    }
};

class SimulatedServiceManagerBench final : public SimulatedBench<ServiceManagerBench> {
public:
    ServiceManager& serviceManager() override { return desktop.serviceManager; }
    std::optional<std::vector<std::string>> job() override { return desktop.serviceManager.job; }
};

/// The members of an event.
JSONMembers membersOf(const SimulatedEvent& event) {
    return JSONMembers::parse(event.line()).value_or(JSONMembers{});
}

class SimulatedSoundsBench final : public SimulatedBench<SoundsBench> {
public:
    Sounds& sounds() override { return desktop.sounds; }
    std::pair<std::string, std::string> known() override { return {"Glass", "Purr"}; }
    Played played() override {
        Played heard;
        for (const auto& event : events) {
            const auto members = membersOf(event);
            heard.emplace_back(members.get<std::string>("name").value_or(""),
                               members.get<double>("volume").value_or(-1));
        }
        return heard;
    }
    double tolerance() override { return 0; }
    bool tellsApartWhatBeginsTogether() override { return true; }
};

class SimulatedShortcutsBench final : public SimulatedBench<ShortcutsBench> {
public:
    Shortcuts& shortcuts() override { return desktop.shortcuts; }
    void prepare(const std::string&) override {} // every name is one here
    std::vector<std::string> runs() override {
        std::vector<std::string> names;
        for (const auto& event : events)
            names.push_back(membersOf(event).get<std::string>("name").value_or("-"));
        return names;
    }
};

class SimulatedRelayTransportBench final : public SimulatedBench<RelayTransportBench> {
public:
    RelayTransport& transport() override { return desktop.relay; }
    std::string postURL() override { return "https://relay.example/post"; }
    std::vector<std::string> received() override { return desktop.relay.messages("post"); }
    std::string streamURL() override { return "https://relay.example/stream/json?since=latest"; }
    void sendLine(const std::string& line) override { desktop.relay.sendLine("stream", line); }
    std::size_t openStreams() override { return desktop.relay.streamCount(); }
    void setUp(bool isUp) override { desktop.relay.setUp(isUp); }
    bool fallSilent() override { return false; }
};

class SimulatedRandomBench final : public RandomBench {
public:
    Random& random() override { return m_random; }

private:
    SimulatedRandom m_random{1};
};

class SimulatedInstalledApplicationsBench final : public SimulatedBench<InstalledApplicationsBench> {
public:
    InstalledApplications& applications() override { return desktop.installedApplications; }
    std::string install(const std::string& bundleID, const std::string& name, Picture picture) override {
        const auto path = "/applications/" + bundleID;
        desktop.installedApplications.apps.push_back({name, bundleID, path});
        if (picture == Picture::withOne) desktop.installedApplications.icons[path] = path + ".png";
        return path;
    }
    void remove(const std::string& path) override {
        std::erase_if(desktop.installedApplications.apps, [&](const auto& app) { return app.path == path; });
    }
    /// Nothing is read here: what is listed is what is whole.
    void spoil(const std::string& path) override { remove(path); }
};

INSTANTIATE_TEST_SUITE_P(Contracts, InstalledApplicationsContract,
                         (simulated<InstalledApplicationsBench, SimulatedInstalledApplicationsBench>()),
                         nameOfMaker<InstalledApplicationsBench>);
INSTANTIATE_TEST_SUITE_P(Contracts, TimeContract, (simulated<TimeBench, SimulatedTimeBench>()), nameOfMaker<TimeBench>);
INSTANTIATE_TEST_SUITE_P(Contracts, ChildProcessesContract,
                         (simulated<ChildProcessesBench, SimulatedChildProcessesBench>()),
                         nameOfMaker<ChildProcessesBench>);
INSTANTIATE_TEST_SUITE_P(Contracts, ServiceManagerContract,
                         (simulated<ServiceManagerBench, SimulatedServiceManagerBench>()),
                         nameOfMaker<ServiceManagerBench>);
INSTANTIATE_TEST_SUITE_P(Contracts, SoundsContract, (simulated<SoundsBench, SimulatedSoundsBench>()),
                         nameOfMaker<SoundsBench>);
INSTANTIATE_TEST_SUITE_P(Contracts, ShortcutsContract, (simulated<ShortcutsBench, SimulatedShortcutsBench>()),
                         nameOfMaker<ShortcutsBench>);
INSTANTIATE_TEST_SUITE_P(Contracts, RelayTransportContract,
                         (simulated<RelayTransportBench, SimulatedRelayTransportBench>()),
                         nameOfMaker<RelayTransportBench>);
INSTANTIATE_TEST_SUITE_P(Contracts, RandomContract, (simulated<RandomBench, SimulatedRandomBench>()),
                         nameOfMaker<RandomBench>);

} // namespace
} // namespace velmorin
