#include "app/platform/linux/services/DesktopMotion.h"

#include "tests/support/BusDaemon.h"
#include "tests/support/LoopRunner.h"
#include "tests/support/TemporaryDirectory.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace velmorin {
namespace {

/// A user's folder of settings and GNOME's settings in memory. GLib looks for them once in a process.
struct Home {
    Home() {
        std::ofstream{directory.path() / "test.gschema.xml"}
            << "<schemalist><schema id='org.gnome.desktop.interface' path='/org/gnome/desktop/interface/'>"
               "<key name='enable-animations' type='b'><default>true</default></key></schema></schemalist>";
        const auto compile = "glib-compile-schemas '" + directory.path().string() + "'";
        hasSchema = std::system(compile.c_str()) == 0;
        ::setenv("GSETTINGS_SCHEMA_DIR", directory.path().c_str(), 1);
        ::setenv("GSETTINGS_BACKEND", "memory", 1);
        ::setenv("XDG_CONFIG_HOME", directory.path().c_str(), 1);
    }
    void writeKDE(const std::string& factor) const {
        std::ofstream{directory.path() / "kdeglobals"} << "[KDE]\nAnimationDurationFactor=" << factor << "\n";
    }
    TemporaryDirectory directory;
    bool hasSchema = false;
};
const Home home;

/// A settings portal that has one value.
class Portal {
public:
    Portal(const BusDaemon& daemon, const char* space, const char* key, const char* value)
        : m_space{space}, m_key{key}, m_value{value}, m_peer{daemon, "org.freedesktop.portal.Desktop"} {
        m_peer.serve(path,
                     "<node><interface name='org.freedesktop.portal.Settings'><method name='ReadAll'><arg type='as' "
                     "direction='in'/><arg type='a{sa{sv}}' direction='out'/></method></interface></node>",
                     [this](const std::string&, GVariant*) {
                         ++asked;
                         const auto text = "({'" + m_space + "': {'" + m_key + "': <" + m_value +
                                           ">, 'font-name': <'Sans'>}, 'org.other': {'x': <1>}},)";
                         return g_variant_new_parsed(text.c_str());
                     });
    }
    void change(const char* value) {
        const auto text = "('" + m_space + "', '" + m_key + "', <" + value + ">)";
        m_peer.emit(path, "org.freedesktop.portal.Settings", "SettingChanged", g_variant_new_parsed(text.c_str()));
    }

    int asked = 0;

private:
    static constexpr const char* path = "/org/freedesktop/portal/desktop";

    std::string m_space, m_key, m_value;
    BusPeer m_peer;
};

class DesktopMotionTest : public testing::Test {
protected:
    DesktopMotionTest() { ::unsetenv("XDG_CURRENT_DESKTOP"); }

    bool becomes(bool reduces) {
        return runner.runUntil([&] { return *motion->reducesMotion() == reduces; }, 10);
    }
    /// Whether it stays as it is, once whoever was asked has answered.
    bool stays(bool reduces) {
        runner.run(0.2);
        return *motion->reducesMotion() == reduces;
    }
    void make() { motion.emplace(); }

    LoopRunner runner;
    BusDaemon bus{"DBUS_SESSION_BUS_ADDRESS"};
    std::optional<DesktopMotion> motion;
};

TEST_F(DesktopMotionTest, thereIsMotionWhereNobodySaysAnything) {
    make();
    EXPECT_FALSE(*motion->reducesMotion());
    EXPECT_TRUE(stays(false));
}

TEST_F(DesktopMotionTest, animationsThatGNOMEHasOffAreNoMotion) {
    Portal portal{bus, "org.gnome.desktop.interface", "enable-animations", "false"};
    make();
    EXPECT_FALSE(*motion->reducesMotion()) << "nothing is waited for";
    EXPECT_TRUE(becomes(true));
}

TEST_F(DesktopMotionTest, animationsThatGNOMEHasOnAreMotion) {
    Portal portal{bus, "org.gnome.desktop.interface", "enable-animations", "true"};
    make();
    ASSERT_TRUE(runner.runUntil([&] { return portal.asked == 1; }, 10));
    EXPECT_TRUE(stays(false));
}

TEST_F(DesktopMotionTest, theCommonKeyOfTheDesktopsCountsAsWell) {
    Portal portal{bus, "org.freedesktop.appearance", "reduced-motion", "uint32 1"};
    make();
    EXPECT_TRUE(becomes(true));
}

TEST_F(DesktopMotionTest, aFactorOfNothingOfKDEIsNoMotion) {
    Portal portal{bus, "org.kde.kdeglobals.KDE", "AnimationDurationFactor", "'0'"};
    make();
    EXPECT_TRUE(becomes(true));
}

TEST_F(DesktopMotionTest, aValueOfAnotherTypeSaysNothing) {
    Portal portal{bus, "org.gnome.desktop.interface", "enable-animations", "'false'"};
    make();
    ASSERT_TRUE(runner.runUntil([&] { return portal.asked == 1; }, 10));
    EXPECT_TRUE(stays(false));
}

TEST_F(DesktopMotionTest, aChangeIsTold) {
    Portal portal{bus, "org.gnome.desktop.interface", "enable-animations", "true"};
    make();
    int changes = 0;
    const auto watch = motion->reducesMotion().watch([&] { ++changes; });
    ASSERT_TRUE(runner.runUntil([&] { return portal.asked == 1; }, 10));
    ASSERT_TRUE(stays(false));
    portal.change("false");
    EXPECT_TRUE(becomes(true));
    portal.change("true");
    EXPECT_TRUE(becomes(false));
    EXPECT_EQ(changes, 2);
}

TEST_F(DesktopMotionTest, withoutAPortalGNOMEsOwnSettingsSpeak) {
    ASSERT_TRUE(home.hasSchema);
    const GOwned<GSettings> gnome{g_settings_new("org.gnome.desktop.interface")};
    make();
    EXPECT_TRUE(stays(false));
    g_settings_set_boolean(gnome.get(), "enable-animations", FALSE);
    EXPECT_TRUE(becomes(true));
    g_settings_reset(gnome.get(), "enable-animations");
    EXPECT_TRUE(becomes(false));
}

TEST_F(DesktopMotionTest, onKDEItsFileIsReadAndFollowed) {
    home.writeKDE("0");
    ::setenv("XDG_CURRENT_DESKTOP", "KDE", 1);
    make();
    EXPECT_TRUE(*motion->reducesMotion()) << "a file is read at once";
    home.writeKDE("0.5");
    EXPECT_TRUE(becomes(false));
}

TEST_F(DesktopMotionTest, onAnotherDesktopKDEsFileIsALeftover) {
    home.writeKDE("0");
    ::setenv("XDG_CURRENT_DESKTOP", "GNOME", 1);
    make();
    EXPECT_TRUE(stays(false));
}

TEST_F(DesktopMotionTest, anAnswerThatComesTooLateIsHarmless) {
    Portal portal{bus, "org.gnome.desktop.interface", "enable-animations", "false"};
    make();
    ASSERT_TRUE(runner.runUntil([&] { return portal.asked == 1; }, 10));
    motion.reset();
    runner.run(0.1);
}

} // namespace
} // namespace velmorin
