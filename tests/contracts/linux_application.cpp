// The contract of this program's own process, kept on a Linux desktop with a login manager on its system bus.

#include "app/platform/linux/services/LinuxApplication.h"
#include "tests/contracts/ApplicationContract.h"
#include "tests/support/BusDaemon.h"
#include "tests/support/LoopRunner.h"

namespace velmorin {
namespace {

/// Another application of a desktop where whoever asks for the front gets it.
class WillingApplication final : public RunningApplication {
public:
    std::int32_t processIdentifier() const override { return 1; }
    const std::optional<std::string>& bundleIdentifier() const override { return m_identifier; }
    const std::optional<std::string>& localizedName() const override { return m_identifier; }
    ActivationPolicy activationPolicy() const override { return ActivationPolicy::regular; }
    bool isHidden() const override { return false; }
    void hide() override {}
    void unhide() override {}
    void terminate() override {}
    void activate() override { isInFront = true; }

    bool isInFront = false;

private:
    std::optional<std::string> m_identifier{"org.example.editor"};
};

class LinuxApplicationBench final : public ApplicationBench {
public:
    LinuxApplicationBench() {
        // The application is known to listen when something else that began to listen after it has heard.
        int heard = 0;
        const auto listening = m_application.observePowerOff([&] { ++heard; });
        constexpr double limit = 10; // seconds
        for (double waited = 0; heard == 0 && waited < limit; waited += 0.05) {
            announcePowerOff();
            m_runner.run(0.05);
        }
        m_runner.run(0.1);
    }
    void settle() override { m_runner.run(0.05); }
    void wait(double seconds) override { m_runner.run(seconds); }
    Application& application() override { return m_application; }
    void agreeToQuit(bool agrees) override { m_agrees = agrees; }
    int quitRequests() override { return m_requests; }
    bool hasEnded() override { return m_hasEnded; }
    void announcePowerOff() override {
        m_logind.emit("/org/freedesktop/login1", "org.freedesktop.login1.Manager", "PrepareForShutdown",
                      g_variant_new("(b)", TRUE));
    }
    RunningApplication& other() override { return m_other; }
    bool isOtherInFront() override { return m_other.isInFront; }

private:
    BusDaemon m_systemBus{"DBUS_SYSTEM_BUS_ADDRESS"};
    BusDaemon m_sessionBus{"DBUS_SESSION_BUS_ADDRESS"};
    BusPeer m_logind{m_systemBus, "org.freedesktop.login1"};
    LoopRunner m_runner;
    WillingApplication m_other;
    bool m_agrees = false;
    int m_requests = 0;
    bool m_hasEnded = false;
    LinuxApplication m_application{m_runner.loop(), "com.kestrava.velmorin", [this] {
                                       ++m_requests;
                                       m_hasEnded = m_agrees;
                                   }};
};

INSTANTIATE_TEST_SUITE_P(Contracts, ApplicationContract,
                         (::testing::Values(BenchMaker<ApplicationBench>{
                             "Linux", [] { return std::make_unique<LinuxApplicationBench>(); }})),
                         nameOfMaker<ApplicationBench>);

} // namespace
} // namespace velmorin
