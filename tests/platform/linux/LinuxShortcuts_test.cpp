#include "app/platform/linux/services/LinuxShortcuts.h"

#include "tests/support/BusDaemon.h"
#include "tests/support/LoopRunner.h"
#include "tests/support/RecordingChildProcesses.h"
#include "tests/support/TemporaryDirectory.h"

#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>
#include <optional>
#include <sys/stat.h>

namespace velmorin {
namespace {

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

TEST_F(LinuxShortcutsTest, onXFCETheSettingIsChanged) {
    BusPeer xfconf{bus, "org.xfce.Xfconf"};
    std::vector<std::string> told;
    xfconf.serve("/org/xfce/Xfconf",
                 "<node><interface name='org.xfce.Xfconf'><method name='SetProperty'><arg type='s' direction='in'/>"
                 "<arg type='s' direction='in'/><arg type='v' direction='in'/></method></interface></node>",
                 [&](const std::string&, GVariant* parameters) {
                     const char* channel = nullptr;
                     const char* property = nullptr;
                     GVariant* value = nullptr;
                     g_variant_get(parameters, "(&s&sv)", &channel, &property, &value);
                     const GValueTree held{value};
                     told.push_back(std::string{channel} + property + (g_variant_get_boolean(value) ? " on" : " off"));
                     return g_variant_new("()");
                 });
    useDesktop("XFCE");
    shortcuts->run("Velmorin On");
    EXPECT_TRUE(runner.runUntil([&] { return told.size() == 1; }, 10));
    shortcuts->run("Velmorin Off");
    EXPECT_TRUE(runner.runUntil([&] { return told.size() == 2; }, 10));
    EXPECT_THAT(told, ElementsAre("xfce4-notifyd/do-not-disturb on", "xfce4-notifyd/do-not-disturb off"));
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
