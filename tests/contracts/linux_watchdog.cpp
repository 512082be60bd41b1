// The contracts of the watchdog's job, kept by a real service manager of a user and by the autostart of a desktop.

#include "app/platform/linux/loop/GLibPointers.h"
#include "app/platform/linux/services/AutostartServiceManager.h"
#include "app/platform/linux/services/SystemdServiceManager.h"
#include "app/platform/linux/services/watchdog/Keeper.h"
#include "app/platform/linux/services/watchdog/SessionEnvironment.h"
#include "app/platform/posix/PosixChildProcesses.h"
#include "core/store/PosixFiles.h"
#include "tests/contracts/GuardedProgramContract.h"
#include "tests/contracts/ServiceManagerContract.h"
#include "tests/support/GuardedWorld.h"
#include "tests/support/UserManagerProcess.h"

#include <gio/gio.h>

namespace velmorin {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

/// Asks a service manager of its own for the command line of a unit; absent where the unit is not there.
class UnitReader {
public:
    explicit UnitReader(const fs::path& socket)
        : m_connection{g_dbus_connection_new_for_address_sync(("unix:path=" + socket.string()).c_str(),
                                                              G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT, nullptr,
                                                              nullptr, nullptr)} {
        // The manager may leave the first message lying until another comes.
        constexpr int patience = 100; // milliseconds
        while (!GValueTree{g_dbus_connection_call_sync(m_connection.get(), nullptr, "/", "org.freedesktop.DBus.Peer",
                                                       "Ping", nullptr, nullptr, G_DBUS_CALL_FLAGS_NONE, patience,
                                                       nullptr, nullptr)}) {
        }
    }

    std::optional<Words> commandOf(const char* unit) {
        const auto path = pathOf(unit);
        if (!path) return std::nullopt;
        const auto value = property(*path, "org.freedesktop.systemd1.Service", "ExecStart");
        if (!value || g_variant_n_children(value.get()) != 1) return std::nullopt;
        const GValueTree command{g_variant_get_child_value(value.get(), 0)};
        const GValueTree list{g_variant_get_child_value(command.get(), 1)};
        Words words;
        for (gsize index = 0; index < g_variant_n_children(list.get()); ++index) {
            const GValueTree word{g_variant_get_child_value(list.get(), index)};
            words.push_back(expanded(g_variant_get_string(word.get(), nullptr)));
        }
        return words;
    }

    std::vector<std::string> units() {
        const auto list =
            call("/org/freedesktop/systemd1", "org.freedesktop.systemd1.Manager", "ListUnits", g_variant_new("()"));
        std::vector<std::string> names;
        if (!list) return names;
        const GValueTree array{g_variant_get_child_value(list.get(), 0)};
        for (gsize index = 0; index < g_variant_n_children(array.get()); ++index) {
            const GValueTree unit{g_variant_get_child_value(array.get(), index)};
            const GValueTree name{g_variant_get_child_value(unit.get(), 0)};
            names.emplace_back(g_variant_get_string(name.get(), nullptr));
        }
        return names;
    }

private:
    /// The manager puts `$` in place of `$$` only when it starts a program.
    static std::string expanded(std::string_view word) {
        std::string text;
        for (std::size_t index = 0; index < word.size(); ++index) {
            text += word[index];
            if (word.substr(index, 2) == "$$") ++index;
        }
        return text;
    }

    GValueTree call(const char* path, const char* interface, const char* method, GVariant* parameters) {
        return GValueTree{g_dbus_connection_call_sync(m_connection.get(), nullptr, path, interface, method, parameters,
                                                      nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr)};
    }
    std::optional<std::string> pathOf(const char* unit) {
        const auto found = call("/org/freedesktop/systemd1", "org.freedesktop.systemd1.Manager", "GetUnit",
                                g_variant_new("(s)", unit));
        if (!found) return std::nullopt;
        const char* path = nullptr;
        g_variant_get(found.get(), "(&o)", &path);
        return path;
    }
    GValueTree property(const std::string& path, const char* interface, const char* name) {
        const auto answer =
            call(path.c_str(), "org.freedesktop.DBus.Properties", "Get", g_variant_new("(ss)", interface, name));
        if (!answer) return nullptr;
        GVariant* value = nullptr;
        g_variant_get(answer.get(), "(v)", &value);
        return GValueTree{value};
    }

    GOwned<GDBusConnection> m_connection;
};

/// The words that follow the program's path.
std::optional<Words> argumentsIn(const std::optional<Words>& command, const fs::path& program) {
    if (!command) return std::nullopt;
    const auto found = std::find(command->begin(), command->end(), program.string());
    return found == command->end() ? std::nullopt : std::optional<Words>{std::in_place, found + 1, command->end()};
}

/// The service manager of a user, and a desktop session that it knows nothing of.
class SystemdWorld {
public:
    SystemdWorld() : world{m_manager.configDirectory(), m_manager.runtimeDirectory()} {
        if (!m_manager.obstacle()) m_reader.emplace(m_manager.socket());
    }

    const std::optional<std::string>& obstacle() const { return m_manager.obstacle(); }
    ServiceManager& serviceManager() { return m_serviceManager; }
    std::optional<Words> job() {
        const auto units = m_reader->units();
        if (std::find(units.begin(), units.end(), "com.kestrava.velmorin.watchdog.timer") == units.end())
            return std::nullopt;
        return argumentsIn(m_reader->commandOf("com.kestrava.velmorin.watchdog.service"), world.place().program);
    }
    std::vector<std::string> leftovers() {
        auto left = world.filesLeft();
        for (const auto& unit : m_reader->units())
            if (unit.find("velmorin") != std::string::npos) left.push_back("unit " + unit);
        return left;
    }

private:
    UserManagerProcess m_manager;

public:
    GuardedWorld world;

private:
    PosixFiles m_files;
    SystemdServiceManager m_serviceManager{world.place(), m_files};
    std::optional<UnitReader> m_reader;
};

/// A desktop session without a service manager.
class AutostartWorld {
public:
    AutostartWorld() : world{m_directory.path() / "config", m_directory.path() / "run"} {}

    static std::optional<std::string> obstacle() { return std::nullopt; }
    ServiceManager& serviceManager() { return m_serviceManager; }
    /// What the keeper would start, if there is one.
    std::optional<Words> job() {
        if (world.keepers().empty()) return std::nullopt;
        const auto content = m_files.read(m_serviceManager.jobFile());
        return content ? argumentsIn(readWords(*content), world.place().program) : std::nullopt;
    }
    std::vector<std::string> leftovers() {
        auto left = world.filesLeft();
        for (const auto process : world.keepers())
            left.push_back("keeper " + std::to_string(process));
        return left;
    }

private:
    TemporaryDirectory m_directory;

public:
    GuardedWorld world;

private:
    PosixFiles m_files;
    PosixChildProcesses m_childProcesses{[](const std::function<void()>&) {}};
    AutostartServiceManager m_serviceManager{world.place(), m_childProcesses, m_files};
};

template <class World>
class RealServiceManagerBench final : public ServiceManagerBench {
public:
    ~RealServiceManagerBench() override { serviceManager().remove(); }
    void settle() override {}
    void wait(double seconds) override { GuardedWorld::wait(seconds); }
    std::optional<std::string> obstacle() override { return m_world.obstacle(); }
    ServiceManager& serviceManager() override { return m_world.serviceManager(); }
    std::optional<Words> job() override { return m_world.job(); }

private:
    World m_world;
};

template <class World>
class RealGuardedProgramBench final : public GuardedProgramBench {
public:
    ~RealGuardedProgramBench() override { serviceManager().remove(); }
    void settle() override {}
    void wait(double seconds) override { GuardedWorld::wait(seconds); }
    ServiceManager& serviceManager() override { return m_world.serviceManager(); }
    std::optional<std::string> obstacle() override { return m_world.obstacle(); }
    std::vector<Process> living() override { return m_world.world.living(); }
    std::vector<std::string> argumentsOf(Process process) override { return GuardedWorld::argumentsOf(process); }
    std::map<std::string, std::string> environmentOf(Process process) override {
        return GuardedWorld::environmentOf(process);
    }
    std::optional<Process> openedBy(Process process) override { return m_world.world.openedBy(process); }
    Process launch() override { return m_world.world.launch(); }
    void kill(Process process) override { m_world.world.kill(process); }
    std::map<std::string, std::string> session() override { return m_world.world.session(); }
    std::vector<std::string> leftovers() override { return m_world.leftovers(); }

private:
    World m_world;
};

template <class Kind, template <class> class RealBench>
auto real() {
    return ::testing::Values(
        BenchMaker<Kind>{"Systemd", [] { return std::make_unique<RealBench<SystemdWorld>>(); }},
        BenchMaker<Kind>{"Autostart", [] { return std::make_unique<RealBench<AutostartWorld>>(); }});
}

INSTANTIATE_TEST_SUITE_P(Contracts, ServiceManagerContract, (real<ServiceManagerBench, RealServiceManagerBench>()),
                         nameOfMaker<ServiceManagerBench>);
INSTANTIATE_TEST_SUITE_P(Contracts, GuardedProgramContract, (real<GuardedProgramBench, RealGuardedProgramBench>()),
                         nameOfMaker<GuardedProgramBench>);

} // namespace
} // namespace velmorin
