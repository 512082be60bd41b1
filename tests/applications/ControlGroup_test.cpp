#include "app/platform/linux/applications/ControlGroup.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

using ControlGroup::applications;
using Names = std::vector<std::string>;

TEST(ControlGroupTest, thePathIsTheServiceManagers) {
    EXPECT_EQ(ControlGroup::path("0::/user.slice/a.scope\n"), "/user.slice/a.scope");
    EXPECT_EQ(ControlGroup::path("12:cpu:/x\n1:name=systemd:/user.slice/a.scope\n0::/\n"), "/user.slice/a.scope");
    EXPECT_EQ(ControlGroup::path("1:name=systemd:/old\n0::/new\n"), "/new");
    EXPECT_EQ(ControlGroup::path(""), "");
    EXPECT_EQ(ControlGroup::path("nonsense"), "");
}

TEST(ControlGroupTest, aScopeNamesLauncherAndApplication) {
    EXPECT_EQ(applications("/app.slice/app-gnome-org.example.Editor-417.scope").front(), "org.example.Editor");
    EXPECT_EQ(applications("/app.slice/app-org.example.Editor-417.scope"), (Names{"org.example.Editor"}));
    EXPECT_EQ(applications("/app-gnome-file\\x2droller-1.scope").front(), "file-roller");
    EXPECT_EQ(applications("/app-gnome-file-roller-1.scope").front(), "file-roller");
    EXPECT_EQ(applications("/app-file-roller-1.scope"), (Names{"roller", "file-roller"}));
}

TEST(ControlGroupTest, aServiceNamesItsApplicationToo) {
    EXPECT_EQ(applications("/app.slice/app-org.example.Editor@autostart.service"), (Names{"org.example.Editor"}));
    EXPECT_EQ(applications("/app.slice/app-org.example.Editor.service"), (Names{"org.example.Editor"}));
}

TEST(ControlGroupTest, theInnermostGroupCounts) {
    EXPECT_EQ(applications("/app-a-1.scope/app-b-2.scope/init"), (Names{"b"}));
}

TEST(ControlGroupTest, otherGroupsNameNoApplication) {
    for (const auto* path : {"", "/", "/user.slice/session-1.scope", "/app.slice", "/app-x", "/app-.scope",
                             "/app-1.scope", "/vte-spawn-1.scope", "/xapp-a-1.scope"})
        EXPECT_EQ(applications(path), Names{}) << path;
}

TEST(ControlGroupTest, aFlatpakIsNamedByItsScope) {
    EXPECT_EQ(ControlGroup::flatpak("/app-flatpak-org.example.Paint-4711.scope"), "org.example.Paint");
    EXPECT_EQ(ControlGroup::flatpak("/app-gnome-org.example.Paint-4711.scope"), std::nullopt);
    EXPECT_EQ(ControlGroup::flatpak("/app-flatpak-.scope"), std::nullopt);
}

TEST(ControlGroupTest, aSnapIsNamedByItsScope) {
    const std::string uuid = "0c3b4bb4-2e65-4dd4-8a93-3dd3a2ea31ce";
    const ControlGroup::Snap expected{"paint", "canvas"};
    EXPECT_EQ(ControlGroup::snap("/snap.paint.canvas-" + uuid + ".scope"), expected);
    EXPECT_EQ(ControlGroup::snap("/snap.paint.canvas." + uuid + ".scope"), expected);
    EXPECT_EQ(ControlGroup::snap("/snap.paint.canvas.service"), expected);
    EXPECT_EQ(ControlGroup::snap("/snap.paint.scope"), std::nullopt);
    EXPECT_EQ(ControlGroup::snap("/snap..scope"), std::nullopt);
}

TEST(ControlGroupTest, brokenEscapesStayAsTheyAre) {
    for (const auto* name : {"a\\x", "a\\x2", "a\\xzz", "\\"})
        EXPECT_EQ(applications("/app-" + std::string{name} + "-1.scope"), (Names{name}));
}

} // namespace
} // namespace velmorin
