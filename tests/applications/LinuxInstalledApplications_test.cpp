#include "app/platform/linux/applications/LinuxInstalledApplications.h"

#include "tests/applications/EntriesFixture.h"

#include <gmock/gmock.h>

namespace velmorin {
namespace {

class LinuxInstalledApplicationsTest : public EntriesFixture {
protected:
    /// Identifiers in the order of the list.
    std::vector<std::string> ids() {
        const DesktopEntries entries{surroundings({"XFCE"})};
        std::vector<std::string> result;
        for (const auto& app : LinuxInstalledApplications{entries, m_icons}.list())
            result.push_back(app.bundleID);
        return result;
    }
    using IDs = std::vector<std::string>;

    IconTheme m_icons{{}};
};

TEST_F(LinuxInstalledApplicationsTest, theUsersEntryOfAnIdStandsForTheSystems) {
    entry("editor", program("editor"));
    const auto own = userEntry("editor", program("editor"));
    const DesktopEntries entries{surroundings()};
    const auto apps = LinuxInstalledApplications{entries, m_icons}.list();
    ASSERT_EQ(apps.size(), 1);
    EXPECT_EQ(apps.front(), (InstalledApp{"editor the Application", "editor", own}));
}

TEST_F(LinuxInstalledApplicationsTest, theUsersEntriesComeBeforeTheSystems) {
    entry("a", program("a"));
    userEntry("b", program("b"));
    EXPECT_EQ(ids(), (IDs{"b", "a"}));
}

TEST_F(LinuxInstalledApplicationsTest, whatTheMenusDoNotShowIsNotListed) {
    entry("hidden", program("x"), "NoDisplay=true\n");
    entry("elsewhere", program("x"), "OnlyShowIn=KDE;\n");
    entry("gone", "gone");
    entry("here", program("x"), "OnlyShowIn=XFCE;\n");
    EXPECT_EQ(ids(), (IDs{"here"}));
}

TEST_F(LinuxInstalledApplicationsTest, whatRunsInATerminalIsNotListed) {
    entry("htop", program("htop"), "Terminal=true\n");
    EXPECT_EQ(ids(), IDs{});
}

TEST_F(LinuxInstalledApplicationsTest, applicationsAreListedAsTheCoreKnowsThem) {
    entry("chromium", program("chromium"));
    entry("debian-xterm", program("xterm"));
    entry("org.gnome.Nautilus", program("nautilus"));
    EXPECT_THAT(ids(), ::testing::UnorderedElementsAre("com.google.Chrome", "debian-xterm", "com.apple.finder"));
}

TEST_F(LinuxInstalledApplicationsTest, ofSeveralForOneApplicationThePreferredNameComesFirst) {
    entry("debian-uxterm", script("uxterm"));
    const auto xterm = entry("debian-xterm", program("xterm"));
    const DesktopEntries entries{surroundings()};
    const auto apps = LinuxInstalledApplications{entries, m_icons}.list();
    ASSERT_EQ(apps.size(), 2);
    EXPECT_EQ(apps.front().path, xterm);
}

TEST_F(LinuxInstalledApplicationsTest, aBrowserStandsBeforeItsWebApplications) {
    userEntry("chrome-abc-Default", program("chromium") + " --app-id=abc");
    const auto chromium = entry("chromium", "chromium");
    const DesktopEntries entries{surroundings()};
    const auto apps = LinuxInstalledApplications{entries, m_icons}.list();
    ASSERT_EQ(apps.size(), 2);
    EXPECT_EQ(apps.front().path, chromium);
}

TEST_F(LinuxInstalledApplicationsTest, whatOpensSettingsOfAPartOfTheSystemIsNotListed) {
    entry("panel-preferences", program("xfce4-panel") + " --preferences");
    entry("thunar", program("thunar"));
    entry("thunar-bulk-rename", "thunar --bulk-rename");
    EXPECT_EQ(ids(), (IDs{"com.apple.finder"}));
}

TEST_F(LinuxInstalledApplicationsTest, anIconIsFoundByTheEntrysPath) {
    const auto picture = write("pen.png", "");
    const auto file = entry("editor", program("editor"), "Icon=" + picture + "\n");
    const DesktopEntries entries{surroundings()};
    const LinuxInstalledApplications applications{entries, m_icons};
    EXPECT_EQ(applications.iconFile(file, 32), picture);
}

} // namespace
} // namespace velmorin
