#pragma once

#include "app/shell/AppDelegate.h"
#include "tests/shell/FakeShell.h"
#include "tests/support/EngineTest.h"

#include <memory>
#include <string>
#include <vector>

namespace velmorin {

/// The program on the simulated desktop, with a shell that keeps in mind what it was told. It has not been launched.
class AppDelegateTest : public EngineTest {
protected:
    static constexpr std::int32_t ownPID = SimulatedWorkspace::firstOwnPID + 500;

    AppDelegateTest();
    ~AppDelegateTest() override;

    /// Lets a process go through its launch.
    void launchProgram(LaunchedBy by = LaunchedBy::user);
    /// The process is gone from one moment to the next.
    void killProgram();
    AppDelegate& program() { return *m_program; }
    SimulatedApplication& application() { return *m_application; }
    SessionController& controller() { return shell.context->controller; }
    AppData& data() { return shell.context->data; }
    const OverlayState& overlay() { return *controller().overlay(); }
    bool hasEnded() const { return m_hasEnded; }
    void startSession(SessionMode mode = SessionMode::pomodoro);
    void changeSettings(const std::function<void(AppSettings&)>& change);
    /// Writes the settings as an earlier process left them.
    void leaveSettings(const AppSettings& settings);
    /// Leaves a pairing behind, as an earlier process does.
    void leavePairing();
    /// Lets the paired phone say something about the running session, or one that has ended.
    void hearPhone(std::string_view type, const UUID& session);
    /// The types of all messages to the phone.
    std::vector<std::string> sentToPhone();
    /// The texts of the status item's menu, as it opens now. A separator is "—", a row that cannot be chosen in round
    /// brackets.
    std::vector<std::string> statusMenu();
    void choose(MenuAction action) {
        shell.item.calls.chosen(action);
        settle();
    }
    void advance(double seconds) {
        EngineTest::advance(seconds);
        settle();
    }
    const AppStrings& texts() const { return m_appearance->strings(); }

    FakeShell shell;
    LaunchOptions options; ///< of the next launch, besides who makes it

private:
    std::unique_ptr<Appearance> m_appearance;
    std::unique_ptr<SimulatedApplication> m_application;
    std::unique_ptr<AppDelegate> m_program;
    bool m_hasEnded = false;
    int m_phoneMessages = 0;
};

} // namespace velmorin
