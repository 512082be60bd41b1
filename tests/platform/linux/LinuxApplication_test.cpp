#include "app/platform/linux/services/LinuxApplication.h"

#include "tests/support/BusDaemon.h"
#include "tests/support/LoopRunner.h"

#include <chrono>
#include <cstdlib>
#include <gmock/gmock.h>

namespace velmorin {
namespace {

using ::testing::ElementsAre;

/// How two session managers name the same things.
struct Names {
    std::string name;
    std::string path;
    std::string interface;
    std::string clientInterface;
};
const Names gnome{"org.gnome.SessionManager", "/org/gnome/SessionManager", "org.gnome.SessionManager",
                  "org.gnome.SessionManager.ClientPrivate"};
const Names xfce{"org.xfce.SessionManager", "/org/xfce/SessionManager", "org.xfce.Session.Manager",
                 "org.xfce.Session.Client"};

/// A session manager that writes down what it is told.
class SessionManager {
public:
    SessionManager(const BusDaemon& daemon, Names names)
        : m_names{std::move(names)}, m_peer{daemon, m_names.name.c_str()} {
        const auto manager = "<node><interface name='" + m_names.interface +
                             "'><method name='RegisterClient'><arg type='s' direction='in'/><arg type='s' "
                             "direction='in'/><arg type='o' direction='out'/></method></interface></node>";
        m_peer.serve(m_names.path.c_str(), manager.c_str(), [this](const std::string&, GVariant* parameters) {
            const char* identifier = nullptr;
            g_variant_get(parameters, "(&s&s)", &identifier, nullptr);
            told.push_back(std::string{"client "} + identifier);
            return g_variant_new("(o)", client);
        });
        const auto own = "<node><interface name='" + m_names.clientInterface +
                         "'><method name='EndSessionResponse'><arg type='b' direction='in'/><arg type='s' "
                         "direction='in'/></method></interface></node>";
        m_peer.serve(client, own.c_str(), [this](const std::string&, GVariant* parameters) {
            gboolean agrees = FALSE;
            g_variant_get(parameters, "(b&s)", &agrees, nullptr);
            told.emplace_back(agrees != FALSE ? "agrees" : "objects");
            return g_variant_new("()");
        });
    }
    void say(const char* signal) {
        const bool hasFlags = std::string_view{signal} == "QueryEndSession" || std::string_view{signal} == "EndSession";
        m_peer.emit(client, m_names.clientInterface.c_str(), signal, hasFlags ? g_variant_new("(u)", 0U) : nullptr);
    }

    std::vector<std::string> told;

private:
    static constexpr const char* client = "/clients/1";

    Names m_names;
    BusPeer m_peer;
};

class LinuxApplicationTest : public testing::TestWithParam<Names> {
protected:
    LinuxApplicationTest() : m_listening{application.observePowerOff([this] { ++announced; })} {}

    /// Lets calls come in until the number of power-offs is this, and a moment longer.
    bool hears(int number) {
        const bool heard = runner.runUntil([&] { return announced >= number; }, 10);
        runner.run(0.05);
        return heard && announced == number;
    }
    bool isTold(const SessionManager& manager, std::size_t count) {
        const bool told = runner.runUntil([&] { return manager.told.size() >= count; }, 10);
        runner.run(0.1); // until the application listens to its signals
        return told;
    }

    BusDaemon systemBus{"DBUS_SYSTEM_BUS_ADDRESS"};
    BusDaemon sessionBus{"DBUS_SESSION_BUS_ADDRESS"};
    LoopRunner runner;
    int announced = 0;
    int quitRequests = 0;
    LinuxApplication application{runner.loop(), "com.kestrava.velmorin", [this] { ++quitRequests; }};

private:
    Cancellable m_listening;
};

TEST_P(LinuxApplicationTest, aLogoutIsAPowerOffThatNobodyIsAskedToStop) {
    SessionManager manager{sessionBus, GetParam()};
    ASSERT_TRUE(isTold(manager, 1));
    manager.say("QueryEndSession");
    EXPECT_TRUE(isTold(manager, 2));
    EXPECT_EQ(announced, 0) << "it is not sure yet";
    manager.say("EndSession");
    EXPECT_TRUE(hears(1));
    EXPECT_TRUE(isTold(manager, 3));
    EXPECT_THAT(manager.told, ElementsAre("client com.kestrava.velmorin", "agrees", "agrees"));
    EXPECT_EQ(quitRequests, 0);
    manager.say("Stop");
    EXPECT_TRUE(runner.runUntil([&] { return quitRequests == 1; }, 10));
}

TEST_P(LinuxApplicationTest, aLogoutThatIsCalledOffIsNone) {
    SessionManager manager{sessionBus, GetParam()};
    ASSERT_TRUE(isTold(manager, 1));
    manager.say("QueryEndSession");
    EXPECT_TRUE(isTold(manager, 2));
    manager.say("CancelEndSession");
    // Signals of one sender arrive in their order: once the next question is answered, this one has been heard.
    manager.say("QueryEndSession");
    ASSERT_TRUE(isTold(manager, 3));
    EXPECT_EQ(announced, 0);
    manager.say("EndSession");
    EXPECT_TRUE(hears(1)) << "once, and only now";
}

TEST_P(LinuxApplicationTest, aStopWithoutALogoutIsARequestLikeAnyOther) {
    SessionManager manager{sessionBus, GetParam()};
    ASSERT_TRUE(isTold(manager, 1));
    manager.say("Stop");
    EXPECT_TRUE(runner.runUntil([&] { return quitRequests == 1; }, 10));
    runner.run(0.05);
    EXPECT_EQ(quitRequests, 1);
    EXPECT_EQ(announced, 0);
}

TEST_P(LinuxApplicationTest, aSessionManagerThatComesAgainIsHeardAgain) {
    {
        SessionManager manager{sessionBus, GetParam()};
        ASSERT_TRUE(isTold(manager, 1));
    }
    SessionManager manager{sessionBus, GetParam()};
    ASSERT_TRUE(isTold(manager, 1));
    manager.say("EndSession");
    EXPECT_TRUE(hears(1));
}

INSTANTIATE_TEST_SUITE_P(SessionManagers, LinuxApplicationTest, testing::Values(gnome, xfce),
                         [](const auto& each) { return each.param.name == gnome.name ? "GNOME" : "XFCE"; });

class LinuxApplicationShutdownTest : public LinuxApplicationTest {};

TEST_P(LinuxApplicationShutdownTest, onlyTheBeginningOfAShutdownIsTold) {
    BusPeer logind{systemBus, "org.freedesktop.login1"};
    const auto announce = [&](bool begins) {
        logind.emit("/org/freedesktop/login1", "org.freedesktop.login1.Manager", "PrepareForShutdown",
                    g_variant_new("(b)", begins ? TRUE : FALSE));
    };
    constexpr double limit = 10; // seconds
    for (double waited = 0; announced == 0 && waited < limit; waited += 0.05) {
        announce(true);
        runner.run(0.05);
    }
    runner.run(0.1);
    ASSERT_GT(announced, 0);
    const int before = announced;
    announce(false);
    announce(true);
    EXPECT_TRUE(hears(before + 1)) << "the second, which arrives after the first";
}

TEST_P(LinuxApplicationShutdownTest, busesThatGoAreNoEndOfAnything) {
    SessionManager manager{sessionBus, GetParam()};
    ASSERT_TRUE(isTold(manager, 1));
    sessionBus.stop();
    systemBus.stop();
    runner.run(0.2);
    EXPECT_EQ(announced, 0);
    application.terminate();
    EXPECT_TRUE(runner.runUntil([&] { return quitRequests == 1; }, 10));
}

INSTANTIATE_TEST_SUITE_P(Any, LinuxApplicationShutdownTest, testing::Values(gnome),
                         [](const auto&) { return "OnItsBuses"; });

TEST(LinuxApplicationWithoutBusTest, startsAtOnceAndHearsNothing) {
    ::setenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nowhere/system", 1);
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/session", 1);
    LoopRunner runner;
    const auto begin = std::chrono::steady_clock::now();
    LinuxApplication application{runner.loop(), std::nullopt, [] {}};
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds{500});
    int announced = 0;
    const auto listening = application.observePowerOff([&] { ++announced; });
    runner.run(0.2);
    EXPECT_EQ(announced, 0);
    ::unsetenv("DBUS_SYSTEM_BUS_ADDRESS");
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

TEST(LinuxApplicationWithoutBusTest, whatItWasCalledAtItsStartIsNotHandedToWhatItStarts) {
    ::setenv("DESKTOP_AUTOSTART_ID", "101", 1);
    LoopRunner runner;
    const LinuxApplication application{runner.loop(), std::nullopt, [] {}};
    EXPECT_EQ(std::getenv("DESKTOP_AUTOSTART_ID"), nullptr);
}

TEST(LinuxApplicationWithoutBusTest, itsRequestsGoWithIt) {
    LoopRunner runner;
    int requests = 0;
    {
        LinuxApplication application{runner.loop(), std::nullopt, [&] { ++requests; }};
        application.terminate();
    }
    runner.run(0.05);
    EXPECT_EQ(requests, 0);
}

} // namespace
} // namespace velmorin
