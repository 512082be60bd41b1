// The contract of the other applications, kept on a real X server under a real window manager with real windows. Needs
// a display: tests/desktop/desktop.py gives it one.

#include "tests/contracts/WorkspaceContract.h"
#include "tests/support/X11World.h"

#include <memory>

namespace velmorin {
namespace {

class X11WorkspaceBench final : public WorkspaceBench {
public:
    void settle() override { m_world.runner().run(0.12); }
    void wait(double seconds) override { m_world.runner().run(seconds); }

    Workspace& workspace() override { return m_world.workspace(); }
    std::int32_t ownPID() override { return X11World::ownPID(); }
    bool knowsEveryApplication() override { return true; }
    std::optional<std::string> identifierInFrontOfNothing() override { return "com.apple.finder"; }

    std::int32_t launch(const Newcomer& newcomer) override {
        std::vector<std::string> arguments;
        if (newcomer.bundleID) arguments = {"--class", *newcomer.bundleID};
        if (!newcomer.inFront) arguments.emplace_back("--behind");
        if (!newcomer.hasWindows) arguments.insert(arguments.end(), {"--type", "splash"});
        if (newcomer.ignoresQuitRequests) arguments.emplace_back("--ignore-closing");
        if (newcomer.bundleID) m_world.writeEntry(*newcomer.bundleID, newcomer.name.value_or(*newcomer.bundleID));
        return m_world.launch(newcomer.bundleID.value_or("nameless"), arguments).processID();
    }
    void userActivates(std::int32_t pid) override { m_world.userActivates(m_world.find(pid).window()); }
    void userQuits(std::int32_t pid) override { m_world.find(pid).quit(); }
    void nobodyInFront() override { m_world.userIconifiesAll(); }
    void install(const std::string& bundleID) override { m_world.writeEntry(bundleID, bundleID); }

private:
    X11World m_world;
};

INSTANTIATE_TEST_SUITE_P(Contracts, WorkspaceContract,
                         (::testing::Values(BenchMaker<WorkspaceBench>{
                             "X11", [] { return std::make_unique<X11WorkspaceBench>(); }})),
                         nameOfMaker<WorkspaceBench>);

} // namespace
} // namespace velmorin
