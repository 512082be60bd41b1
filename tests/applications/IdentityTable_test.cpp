#include "app/platform/linux/applications/IdentityTable.h"

#include "app/platform/linux/applications/IdentityRows.h"
#include "app/platform/linux/browsers/KnownBrowsers.h"
#include "core/foundation/Text.h"
#include "core/rules/AppPolicy.h"

#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace velmorin {
namespace {

using namespace IdentityTable;

std::vector<Row> allRows() {
    std::vector<Row> all;
    for (const auto rows : {productRows(), escapeHatchRows(), systemRows()})
        all.insert(all.end(), rows.begin(), rows.end());
    return all;
}

std::vector<std::string> words(std::string_view text) {
    std::istringstream stream{std::string{text}};
    return {std::istream_iterator<std::string>{stream}, {}};
}

TEST(IdentityTableTest, aProductHasOneIdentifierUnderAllItsNames) {
    for (const auto* name : {"google-chrome", "Google-chrome", "google-chrome-stable", "chromium", "Chromium-browser",
                             "org.chromium.Chromium", "com.google.Chrome", "chromium_chromium"})
        EXPECT_EQ(bundleID(name), "com.google.Chrome") << name;
    for (const auto* name : {"firefox", "firefox-esr", "Firefox-esr", "org.mozilla.firefox", "firefox_firefox"})
        EXPECT_EQ(bundleID(name), "org.mozilla.firefox") << name;
    EXPECT_EQ(bundleID("brave-browser"), "com.brave.Browser");
    EXPECT_EQ(bundleID("microsoft-edge"), "com.microsoft.edgemac");
    EXPECT_EQ(bundleID("com.opera.Opera"), "com.operasoftware.Opera");
    EXPECT_EQ(bundleID("vivaldi-stable"), "com.vivaldi.Vivaldi");
    EXPECT_EQ(bundleID("Tor Browser"), "torbrowser");
}

TEST(IdentityTableTest, whatItDoesNotKnowKeepsItsName) {
    for (const auto* name : {"org.example.Editor", "paint_canvas", "", "_", "google-chrome-helper", "xchromium"})
        EXPECT_EQ(bundleID(name), name);
}

TEST(IdentityTableTest, noNameIsThatOfAPartOfTheSystem) {
    for (const auto exempt : AppPolicy::systemExempt) {
        EXPECT_NE(bundleID(exempt), exempt);
        EXPECT_TRUE(isReserved(exempt));
    }
    EXPECT_NE(bundleID(ownBundleID), ownBundleID);
    for (const auto& row : systemRows()) {
        for (const auto& name : words(row.names))
            EXPECT_FALSE(isReserved(bundleID(name))) << name;
    }
}

TEST(IdentityTableTest, aPartOfTheSystemIsToldByItsProgramWhereTheSystemPutItThere) {
    const std::map<std::string, std::string> parts{
        {"Thunar", "com.apple.finder"},
        {"xfce4-panel", "com.apple.dock"},
        {"brisk-menu", "com.apple.Spotlight"},
        {"openbox", "com.apple.WindowManager"},
        {"polkit-gnome-authentication-agent-1", "com.apple.SecurityAgent"},
        {"xscreensaver", "com.apple.ScreenSaver.Engine"},
        {"xfce4-session-logout", "com.apple.loginwindow"},
        {"dunst", "com.apple.notificationcenterui"},
        {"fcitx5", "com.apple.systemuiserver"},
        {"ibus-ui-gtk3", "com.apple.systemuiserver"},
        {"onboard", "com.apple.systemuiserver"},
        {"xdg-desktop-portal-gtk", "com.apple.coreservices.uiagent"},
    };
    for (const auto& [program, id] : parts) {
        EXPECT_EQ(bundleIDOfProgram(program, true), id);
        EXPECT_EQ(bundleIDOfProgram(program, false), std::nullopt) << program;
    }
    EXPECT_EQ(bundleIDOfProgram("editor", true), std::nullopt);
    EXPECT_EQ(bundleIDOfProgram("", true), std::nullopt);
}

TEST(IdentityTableTest, dialogsThatAllowedApplicationsNeedAreThoseOfTheSystem) {
    const std::map<std::string, std::string> helpers{
        {"com.apple.coreservices.uiagent",
         "xdg-desktop-portal xdg-desktop-portal-gtk xdg-desktop-portal-kde xdg-desktop-portal-gnome "
         "xdg-desktop-portal-xapp xdg-desktop-portal-lxqt xdg-desktop-portal-wlr xdg-desktop-portal-hyprland"},
        {"com.apple.SecurityAgent",
         "polkit-gnome-authentication-agent-1 polkit-mate-authentication-agent-1 polkit-kde-authentication-agent-1 "
         "lxqt-policykit-agent lxpolkit xfce-polkit budgie-polkit-dialog gcr-prompter gcr4-ssh-askpass "
         "pinentry-gnome3 pinentry-gtk-2 pinentry-qt pinentry-qt6 pinentry-fltk"},
        {"com.apple.systemuiserver",
         "ibus-daemon ibus-ui-gtk3 ibus-engine-anthy ibus-engine-hangul ibus-engine-rime mozc_renderer fcitx fcitx5 "
         "uim-candwin-gtk3 kime-candidate-window onboard maliit-server orca kmag kaccess magnus mousetweaks"},
    };
    for (const auto& [id, programs] : helpers) {
        for (const auto& program : words(programs)) {
            EXPECT_EQ(bundleIDOfProgram(program, true), id) << program;
            EXPECT_EQ(bundleIDOfProgram(program, false), std::nullopt) << program;
        }
    }
}

TEST(IdentityTableTest, whatTakesACommandLineIsNoPartOfTheSystemButAWayRoundTheLock) {
    for (const auto* program : {"krunner", "xfce4-appfinder", "lxqt-runner", "rofi", "wofi", "dmenu", "jgmenu",
                                "ulauncher", "albert", "synapse", "kupfer", "gmrun"}) {
        const auto id = bundleIDOfProgram(program, true);
        ASSERT_TRUE(id.has_value()) << program;
        EXPECT_FALSE(isReserved(*id)) << program;
        EXPECT_TRUE(isEscapeHatch(*id)) << program;
    }
}

TEST(IdentityTableTest, waysRoundTheLockAreKnownUnderAllTheirNames) {
    for (const auto* name : {"xterm", "debian-xterm", "org.gnome.Terminal", "org.kde.konsole", "kitty", "Alacritty",
                             "xfce4-terminal", "gnome-system-monitor", "org.kde.plasma-systemmonitor", "htop",
                             "xfce4-taskmanager", "org.gnome.Settings", "systemsettings", "autokey-gtk"}) {
        EXPECT_TRUE(isEscapeHatch(name)) << name;
        EXPECT_TRUE(isEscapeHatch(bundleID(name))) << name;
    }
    for (const auto* name : {"org.gnome.gedit", "com.google.Chrome", "org.gnome.Nautilus", "terminal-game", ""})
        EXPECT_FALSE(isEscapeHatch(name)) << name;
}

TEST(IdentityTableTest, browsersThatCannotBeReadAreKnown) {
    for (const auto* name : {"org.gnome.Epiphany", "falkon", "konqueror", "librewolf", "org.qutebrowser.qutebrowser"})
        EXPECT_TRUE(isUnsupportedBrowser(bundleID(name))) << name;
    // These two are the core's to judge.
    EXPECT_FALSE(isUnsupportedBrowser("com.google.Chrome"));
    EXPECT_FALSE(isUnsupportedBrowser("org.mozilla.firefox"));
}

TEST(IdentityTableTest, theNamesOfAnApplicationBeginWithThePreferredOne) {
    EXPECT_EQ(namesOf("com.google.Chrome").front(), "google-chrome");
    EXPECT_EQ(namesOf("com.apple.finder").front(), "org.gnome.nautilus");
    EXPECT_EQ(namesOf("org.example.Editor"), (std::vector<std::string_view>{"org.example.Editor"}));
}

// The table itself.

TEST(IdentityTableTest, everyNameAndProgramStandsInOneRowOnly) {
    std::map<std::string, int> names;
    std::map<std::string, int> programs;
    for (const auto& row : allRows()) {
        for (const auto& name : words(row.names))
            EXPECT_EQ(++names[name], 1) << name;
        for (const auto& program : words(row.programs))
            EXPECT_EQ(++programs[program], 1) << program;
    }
}

TEST(IdentityTableTest, namesAndProgramsAreWrittenInLowerCase) {
    for (const auto& row : allRows()) {
        EXPECT_EQ(lowercased(row.names), row.names);
        EXPECT_EQ(lowercased(row.programs), row.programs);
        EXPECT_FALSE(row.bundleID.empty());
    }
}

TEST(IdentityTableTest, aRowIsAPartOfTheSystemExactlyWhenItsIdentifierFreesFromTheLock) {
    for (const auto& row : allRows())
        EXPECT_EQ(row.kind == Kind::systemPart, isReserved(row.bundleID)) << row.bundleID;
}

TEST(IdentityTableTest, everyProgramOfABrowserThatIsReadIsFoundWhenItsTabsAreAskedFor) {
    for (const auto& row : productRows()) {
        const auto* const browser = browserWithIdentity(row.bundleID);
        if (browser == nullptr) continue;
        EXPECT_FALSE(row.programs.empty()) << row.bundleID;
        for (const auto& program : words(row.programs))
            EXPECT_EQ(browserOfExecutable(program), browser) << program;
    }
}

TEST(IdentityTableTest, everyProgramThatIsAskedForTabsHasTheIdentifierOfItsBrowser) {
    for (const auto& browser : knownBrowsers()) {
        for (const auto program : browser.executables)
            EXPECT_EQ(bundleIDOfProgram(program, false), browser.identity) << program;
    }
}

} // namespace
} // namespace velmorin
