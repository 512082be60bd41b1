#include "app/platform/linux/services/LinuxShortcuts.h"

#include "tests/support/BusDaemon.h"
#include "tests/support/LoopRunner.h"
#include "tests/support/RecordingChildProcesses.h"
#include "tests/support/TemporaryDirectory.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <future>
#include <gmock/gmock.h>
#include <optional>
#include <sys/stat.h>
#include <thread>

namespace velmorin {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The settings of a GNOME desktop, in memory. Looked for once in a process, so they are made before all tests.
struct Settings {
    Settings() {
        std::ofstream{directory.path() / "test.gschema.xml"}
            << "<schemalist><schema id='org.gnome.desktop.notifications' path='/org/gnome/desktop/notifications/'>"
               "<key name='show-banners' type='b'><default>true</default></key></schema></schemalist>";
        const auto compile = "glib-compile-schemas '" + directory.path().string() + "'";
        isThere = std::system(compile.c_str()) == 0;
        ::setenv("GSETTINGS_SCHEMA_DIR", directory.path().c_str(), 1);
        ::setenv("GSETTINGS_BACKEND", "memory", 1);
    }
    TemporaryDirectory directory;
    bool isThere = false;
};
const Settings settings;

class LinuxShortcutsTest : public testing::Test {
protected:
    void prepare(const std::string& name, mode_t rights = 0700) const {
        std::filesystem::create_directories(folder());
        std::ofstream{folder() / name} << "#!/bin/sh\n";
        ::chmod((folder() / name).c_str(), rights);
    }
    std::filesystem::path folder() const { return m_directory.path() / "shortcuts"; }
    void useDesktop(const char* desktops) {
        ::setenv("XDG_CURRENT_DESKTOP", desktops, 1);
        shortcuts.emplace(folder(), childProcesses);
    }
    void TearDown() override { ::unsetenv("XDG_CURRENT_DESKTOP"); }

    BusDaemon bus{"DBUS_SESSION_BUS_ADDRESS"};
    LoopRunner runner;
    RecordingChildProcesses childProcesses;
    std::optional<LinuxShortcuts> shortcuts;

private:
    TemporaryDirectory m_directory;
};

TEST_F(LinuxShortcutsTest, aNameIsAnExecutableOfTheFolder) {
    useDesktop("");
    prepare("Quiet please");
    shortcuts->run("Quiet please");
    EXPECT_THAT(childProcesses.lines, ElementsAre("start " + (folder() / "Quiet please").string()));
}

TEST_F(LinuxShortcutsTest, whatIsNoneOfTheFolderIsNotRun) {
    useDesktop("");
    prepare("text", 0600);
    prepare("../outside");
    std::filesystem::create_directories(folder() / "folder");
    for (const char* name : {"", ".", "..", "../outside", "/bin/true", "folder", "folder/../text", "text", "missing"})
        shortcuts->run(name);
    shortcuts->run(std::string{"text\0", 5});
    EXPECT_THAT(childProcesses.lines, IsEmpty());
}

TEST_F(LinuxShortcutsTest, anExecutableComesBeforeTheDesktopsOwn) {
    useDesktop("GNOME");
    prepare("Velmorin On");
    shortcuts->run("Velmorin On");
    EXPECT_THAT(childProcesses.lines, ElementsAre("start " + (folder() / "Velmorin On").string()));
}

TEST_F(LinuxShortcutsTest, onGNOMEBannersAreHeldBack) {
    ASSERT_TRUE(settings.isThere);
    const GOwned<GSettings> gnome{g_settings_new("org.gnome.desktop.notifications")};
    useDesktop("ubuntu:GNOME");
    shortcuts->run("Velmorin On");
    EXPECT_FALSE(g_settings_get_boolean(gnome.get(), "show-banners"));
    shortcuts->run("Velmorin Off");
    EXPECT_TRUE(g_settings_get_boolean(gnome.get(), "show-banners"));
    useDesktop("MATE");
    shortcuts->run("Velmorin On");
    EXPECT_TRUE(g_settings_get_boolean(gnome.get(), "show-banners")) << "another desktop is left alone";
}

/// The notifications of KDE, which write down who holds them back.
class Notifications {
public:
    explicit Notifications(const BusDaemon& bus) : m_peer{bus, "org.freedesktop.Notifications"} {
        m_peer.serve("/org/freedesktop/Notifications",
                     "<node><interface name='org.freedesktop.Notifications'><method name='Inhibit'>"
                     "<arg type='s' direction='in'/><arg type='s' direction='in'/><arg type='a{sv}' direction='in'/>"
                     "<arg type='u' direction='out'/></method><method name='UnInhibit'><arg type='u' direction='in'/>"
                     "</method></interface></node>",
                     [this](const std::string& method, GVariant* parameters) -> GVariant* {
                         if (method == "Inhibit") {
                             told.emplace_back("inhibit");
                             return g_variant_new("(u)", cookie);
                         }
                         guint32 released = 0;
                         g_variant_get(parameters, "(u)", &released);
                         told.push_back(released == cookie ? "release" : "release of another");
                         return g_variant_new("()");
                     });
    }
    std::vector<std::string> told;

private:
    static constexpr guint32 cookie = 7;

    BusPeer m_peer;
};

TEST_F(LinuxShortcutsTest, onKDENotificationsAreHeldBackUntilTheyAreReleased) {
    Notifications notifications{bus};
    useDesktop("KDE");
    shortcuts->run("Velmorin On");
    EXPECT_TRUE(runner.runUntil([&] { return !notifications.told.empty(); }, 10));
    runner.run(0.1);
    shortcuts->run("Velmorin On");
    shortcuts->run("Velmorin Off");
    shortcuts->run("Velmorin Off");
    EXPECT_TRUE(runner.runUntil([&] { return notifications.told.size() > 1; }, 10));
    runner.run(0.1);
    EXPECT_THAT(notifications.told, ElementsAre("inhibit", "release"));
}

TEST_F(LinuxShortcutsTest, onKDETheLastWordCountsHoweverQuicklyItComes) {
    Notifications notifications{bus};
    useDesktop("KDE");
    shortcuts->run("Velmorin Off");
    runner.run(0.2);
    shortcuts->run("Velmorin On");
    shortcuts->run("Velmorin Off");
    EXPECT_TRUE(runner.runUntil([&] { return notifications.told.size() > 1; }, 10));
    EXPECT_THAT(notifications.told, ElementsAre("inhibit", "release"));
}

/// The settings of XFCE, which write down what they are told.
class Xfconf {
public:
    explicit Xfconf(const BusDaemon& bus) : m_peer{bus, "org.xfce.Xfconf"} {
        m_peer.serve("/org/xfce/Xfconf",
                     "<node><interface name='org.xfce.Xfconf'><method name='SetProperty'><arg type='s' direction='in'/>"
                     "<arg type='s' direction='in'/><arg type='v' direction='in'/></method></interface></node>",
                     [this](const std::string&, GVariant* parameters) {
                         const char* channel = nullptr;
                         const char* property = nullptr;
                         GVariant* value = nullptr;
                         g_variant_get(parameters, "(&s&sv)", &channel, &property, &value);
                         const GValueTree held{value};
                         const bool isOn = g_variant_get_boolean(value) != FALSE;
                         told.push_back(std::string{channel} + property + (isOn ? " on" : " off"));
                         return g_variant_new("()");
                     });
    }
    std::vector<std::string> told;

private:
    BusPeer m_peer;
};

TEST_F(LinuxShortcutsTest, onXFCETheSettingIsChanged) {
    Xfconf xfconf{bus};
    useDesktop("XFCE");
    shortcuts->run("Velmorin On");
    EXPECT_TRUE(runner.runUntil([&] { return xfconf.told.size() == 1; }, 10));
    shortcuts->run("Velmorin Off");
    EXPECT_TRUE(runner.runUntil([&] { return xfconf.told.size() == 2; }, 10));
    EXPECT_THAT(xfconf.told, ElementsAre("xfce4-notifyd/do-not-disturb on", "xfce4-notifyd/do-not-disturb off"));
}

/// The settings of XFCE on a thread of their own, so that they answer while this one waits.
class XfconfApart {
public:
    explicit XfconfApart(const BusDaemon& bus) {
        std::promise<void> isReady;
        auto ready = isReady.get_future();
        m_thread = std::thread{[this, &bus, &isReady] { serve(bus, isReady); }};
        ready.wait();
    }
    XfconfApart(const XfconfApart&) = delete;
    XfconfApart& operator=(const XfconfApart&) = delete;
    ~XfconfApart() { end(); }

    /// What they have been told; they are gone from then on.
    std::vector<std::string> end() {
        m_isOver = true;
        if (m_thread.joinable()) m_thread.join();
        return m_told;
    }

private:
    void serve(const BusDaemon& bus, std::promise<void>& isReady) {
        auto* context = g_main_context_new();
        g_main_context_push_thread_default(context);
        {
            Xfconf xfconf{bus};
            isReady.set_value();
            for (; !m_isOver; g_usleep(1000))
                while (g_main_context_iteration(context, FALSE) != FALSE) {
                }
            m_told = xfconf.told;
        }
        g_main_context_pop_thread_default(context);
        g_main_context_unref(context);
    }

    std::atomic<bool> m_isOver{false};
    std::vector<std::string> m_told;
    std::thread m_thread;
};

TEST_F(LinuxShortcutsTest, whatIsTurnedOffIsOffThoughTheProgramEndsAtOnce) {
    XfconfApart xfconf{bus};
    useDesktop("XFCE");
    shortcuts->run("Velmorin Off");
    shortcuts.reset();
    EXPECT_THAT(xfconf.end(), ElementsAre("xfce4-notifyd/do-not-disturb off"));
}

TEST_F(LinuxShortcutsTest, theLastWordCountsThoughTheProgramEndsAtOnce) {
    XfconfApart xfconf{bus};
    useDesktop("XFCE");
    shortcuts->run("Velmorin On");
    runner.run(0.2);
    shortcuts->run("Velmorin Off");
    shortcuts.reset();
    const auto told = xfconf.end();
    ASSERT_THAT(told, Contains("xfce4-notifyd/do-not-disturb on"));
    EXPECT_EQ(told.back(), "xfce4-notifyd/do-not-disturb off");
}

TEST_F(LinuxShortcutsTest, settingsThatDoNotAnswerHoldUpTheEndForASecondOnly) {
    const Xfconf xfconf{bus}; // served by this thread, which waits
    useDesktop("XFCE");
    shortcuts->run("Velmorin Off");
    const auto begin = std::chrono::steady_clock::now();
    shortcuts.reset();
    const std::chrono::duration<double> waited = std::chrono::steady_clock::now() - begin;
    EXPECT_GT(waited.count(), 0.5 * DoNotDisturb::patience);
    EXPECT_LT(waited.count(), DoNotDisturb::patience + 1);
    // It has been sent all the same.
    EXPECT_TRUE(runner.runUntil([&] { return !xfconf.told.empty(); }, 10));
}

TEST_F(LinuxShortcutsTest, anEndWithoutAnybodyToTellIsQuick) {
    for (const char* desktop : {"XFCE", "KDE", "GNOME"}) {
        useDesktop(desktop);
        shortcuts->run("Velmorin Off");
        const auto begin = std::chrono::steady_clock::now();
        shortcuts.reset();
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds{500}) << desktop;
    }
}

TEST_F(LinuxShortcutsTest, aDesktopThatServesNoneIsNoError) {
    for (const char* desktop : {"KDE", "XFCE", "GNOME", "Other", ""}) {
        useDesktop(desktop);
        shortcuts->run("Velmorin On");
        runner.run(0.1);
        shortcuts->run("Velmorin Off");
        runner.run(0.1);
    }
    EXPECT_THAT(childProcesses.lines, IsEmpty());
}

} // namespace
} // namespace velmorin
