// The contracts of the applications' seams on the simulated desktop: the others', and this program's own.

#include "app/platform/simulated/SimulatedApplication.h"
#include "tests/contracts/ApplicationContract.h"
#include "tests/contracts/SimulatedBench.h"
#include "tests/contracts/WorkspaceContract.h"

namespace velmorin {
namespace {

constexpr const char* ownBundleID = "com.kestrava.velmorin";

class SimulatedWorkspaceBench final : public SimulatedBench<WorkspaceBench> {
public:
    SimulatedWorkspaceBench() {
        desktop.workspace.add({ownPID(), ownBundleID, std::nullopt, ActivationPolicy::accessory});
    }
    Workspace& workspace() override { return desktop.workspace; }
    std::int32_t ownPID() override { return SimulatedWorkspace::firstOwnPID; }
    std::int32_t launch(const Newcomer& newcomer) override {
        SimulatedApplicationInfo info;
        info.pid = desktop.workspace.unusedPID();
        info.bundleID = newcomer.bundleID;
        info.name = newcomer.name;
        if (!newcomer.hasWindows) info.policy = ActivationPolicy::prohibited;
        if (newcomer.ignoresQuitRequests) info.quits = QuitManners::never;
        const auto pid = info.pid;
        desktop.workspace.launch(std::move(info), newcomer.inFront);
        return pid;
    }
    void userActivates(std::int32_t pid) override { desktop.workspace.activate(pid); }
    void userQuits(std::int32_t pid) override { desktop.workspace.quit(pid); }
    void nobodyInFront() override { desktop.workspace.leaveFront(); }
    void install(const std::string& bundleID) override { desktop.workspace.installed.insert(bundleID); }
};

class SimulatedApplicationBench final : public SimulatedBench<ApplicationBench> {
public:
    static constexpr std::int32_t otherPID = 10;

    SimulatedApplicationBench() {
        desktop.workspace.add({otherPID, "org.example.editor", "Editor"});
        // The program's owner gives its answer, and lets the process go once it has left this call.
        m_application.onTerminate = [this] {
            ++m_requests;
            if (m_agrees) desktop.time.post([this] { m_hasEnded = true; }).detach();
        };
    }
    Application& application() override { return m_application; }
    void agreeToQuit(bool agrees) override { m_agrees = agrees; }
    int quitRequests() override { return m_requests; }
    bool hasEnded() override { return m_hasEnded; }
    void announcePowerOff() override { m_application.announcePowerOff(); }
    RunningApplication& other() override { return *desktop.workspace.runningApplications().front(); }
    bool isOtherInFront() override { return desktop.workspace.frontmostApplication() != nullptr; }

private:
    SimulatedApplication m_application{SimulatedWorkspace::firstOwnPID, ownBundleID};
    bool m_agrees = false;
    int m_requests = 0;
    bool m_hasEnded = false;
};

INSTANTIATE_TEST_SUITE_P(Contracts, WorkspaceContract, (simulated<WorkspaceBench, SimulatedWorkspaceBench>()),
                         nameOfMaker<WorkspaceBench>);
INSTANTIATE_TEST_SUITE_P(Contracts, ApplicationContract, (simulated<ApplicationBench, SimulatedApplicationBench>()),
                         nameOfMaker<ApplicationBench>);

} // namespace
} // namespace velmorin
