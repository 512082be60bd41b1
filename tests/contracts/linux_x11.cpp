// The contract of the other applications, kept on a real X server under a real window manager with real windows. Needs
// a display: tests/desktop/desktop.py gives it one.

#include "app/platform/linux/applications/ApplicationIdentities.h"
#include "app/platform/linux/applications/ApplicationLauncher.h"
#include "app/platform/linux/applications/DesktopEntries.h"
#include "app/platform/linux/applications/ProcFS.h"
#include "app/platform/linux/x11/X11Connection.h"
#include "app/platform/linux/x11/X11Workspace.h"
#include "tests/contracts/WorkspaceContract.h"
#include "tests/support/LoopRunner.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/WindowProgram.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <list>
#include <map>
#include <memory>
#include <unistd.h>

namespace velmorin {
namespace {

namespace fs = std::filesystem;

class X11WorkspaceBench final : public WorkspaceBench {
public:
    X11WorkspaceBench() {
        fs::create_directories(entriesFolder());
        m_connection = X11Connection::open(m_runner.loop());
        m_hands = X11Connection::open(m_runner.loop());
        if (!m_connection || !m_hands) throw std::runtime_error{"these tests need a display"};
        m_workspace = std::make_unique<X11Workspace>(
            *m_connection, X11Workspace::Knowledge{m_identities, m_processes, m_launcher, self});
    }
    ~X11WorkspaceBench() override {
        m_programs.clear();
        // What was opened by the workspace is nobody's child, and may come late.
        m_runner.run(0.1);
        m_runner.runUntil([&] {
            const auto running = m_workspace->runningApplications();
            for (const auto& application : running)
                if (const auto pid = application->processIdentifier(); pid > 0 && pid != ownPID()) ::kill(pid, SIGKILL);
            return running.size() == 2; // this program and the desktop
        });
    }

    void settle() override { m_runner.run(0.12); }
    void wait(double seconds) override { m_runner.run(seconds); }

    Workspace& workspace() override { return *m_workspace; }
    std::int32_t ownPID() override { return static_cast<std::int32_t>(::getpid()); }
    bool knowsEveryApplication() override { return true; }
    std::optional<std::string> identifierInFrontOfNothing() override { return "com.apple.finder"; }

    std::int32_t launch(const Newcomer& newcomer) override {
        std::vector<std::string> arguments;
        if (newcomer.bundleID) arguments = {"--class", *newcomer.bundleID};
        if (!newcomer.inFront) arguments.emplace_back("--behind");
        if (!newcomer.hasWindows) arguments.emplace_back("--skip-taskbar");
        if (newcomer.ignoresQuitRequests) arguments.emplace_back("--ignore-closing");
        if (newcomer.bundleID) writeEntry(*newcomer.bundleID, newcomer.name.value_or(*newcomer.bundleID));
        auto& program = m_programs.emplace_back(programOf(newcomer.bundleID.value_or("nameless")), arguments);
        const auto isThere = [&] {
            return std::ranges::any_of(m_workspace->runningApplications(), [&](const auto& application) {
                return application->processIdentifier() == program.processID();
            });
        };
        m_runner.runUntil(isThere);
        return program.processID();
    }
    void userActivates(std::int32_t pid) override { activate(find(pid).window()); }
    void userQuits(std::int32_t pid) override { find(pid).quit(); }
    void nobodyInFront() override {
        constexpr std::uint32_t iconic = 3;
        for (auto& program : m_programs)
            m_hands->askManager(program.window(), m_hands->atoms().wmChangeState, iconic);
        m_hands->flush();
    }
    void install(const std::string& bundleID) override { writeEntry(bundleID, bundleID); }

private:
    static inline const ApplicationIdentity self{"com.kestrava.velmorin", "Dravoni", std::nullopt};

    fs::path entriesFolder() const { return m_directory.path() / "applications"; }

    /// Each application is a program of its own, as applications are.
    fs::path programOf(const std::string& name) const {
        const auto path = m_directory.path() / name;
        if (!fs::exists(path)) fs::copy_file(VELMORIN_TEST_WINDOW, path);
        return path;
    }
    void writeEntry(const std::string& id, const std::string& name) {
        std::ofstream{entriesFolder() / (id + ".desktop")} << "[Desktop Entry]\nType=Application\nName=" << name
                                                           << "\nExec=" << programOf(id).string() << " --class " << id
                                                           << "\n";
        // The index hears of it from the file system.
        m_runner.runUntil([&] { return m_entries.withID(id) != nullptr; });
    }
    WindowProgram& find(std::int32_t pid) {
        for (auto& program : m_programs)
            if (program.processID() == pid) return program;
        throw std::runtime_error{"no such program"};
    }
    void activate(std::uint32_t window) {
        constexpr std::uint32_t user = 2;
        m_hands->askManager(window, m_hands->ewmh()._NET_ACTIVE_WINDOW, user);
        m_hands->flush();
    }

    TemporaryDirectory m_directory;
    LoopRunner m_runner;
    DesktopEntries m_entries{{{m_directory.path().string()}, {}, {}}};
    ProcFS m_processes;
    ApplicationIdentities m_identities{m_entries, m_processes};
    ApplicationLauncher m_launcher{m_entries};
    std::unique_ptr<X11Connection> m_connection;
    std::unique_ptr<X11Connection> m_hands; ///< the user's
    std::unique_ptr<X11Workspace> m_workspace;
    std::list<WindowProgram> m_programs;
};

INSTANTIATE_TEST_SUITE_P(Contracts, WorkspaceContract,
                         (::testing::Values(BenchMaker<WorkspaceBench>{
                             "X11", [] { return std::make_unique<X11WorkspaceBench>(); }})),
                         nameOfMaker<WorkspaceBench>);

} // namespace
} // namespace velmorin
