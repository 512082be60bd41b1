#include "app/platform/linux/applications/ApplicationIdentities.h"

#include "app/platform/linux/applications/IdentityTable.h"
#include "core/rules/AppPolicy.h"
#include "core/rules/BrowserKind.h"
#include "tests/applications/EntriesFixture.h"
#include "tests/applications/ScriptedProcesses.h"

#include <limits>
#include <unistd.h>

namespace velmorin {
namespace {

class ApplicationIdentitiesTest : public EntriesFixture {
protected:
    static constexpr std::int32_t pid = std::numeric_limits<std::int32_t>::max();

    /// The identity of a window of this class, of a process that is as `process` says.
    ApplicationIdentity identify(const std::string& instance, const std::string& className) {
        processes.processes[pid] = process;
        const DesktopEntries entries{surroundings()};
        return ApplicationIdentities{entries, processes}.identify({pid, instance, className});
    }
    std::string idOf(const std::string& instance, const std::string& className) {
        return identify(instance, className).bundleID.value_or("none");
    }
    std::string idOf(const std::string& className) { return idOf("", className); }

    void runs(const std::string& program, bool isOfSystem = true) {
        process.program = program;
        process.isOfSystem = isOfSystem;
    }

    ProcessFacts process;
    ScriptedProcesses processes;
};

bool isExempt(const std::string& bundleID) {
    return AppPolicy{}.isAllowed(bundleID);
}

// By what a window says.

TEST_F(ApplicationIdentitiesTest, theEntryOfTheStartupClassNamesTheApplication) {
    const auto file = entry("org.example.Editor", program("editor"), "StartupWMClass=editor-window\n");
    EXPECT_EQ(identify("x", "Editor-Window"),
              (ApplicationIdentity{"org.example.Editor", "org.example.Editor the Application", file}));
}

TEST_F(ApplicationIdentitiesTest, theInstanceTellsWindowsOfOneClassApart) {
    entry("writer", script("office"), "StartupWMClass=office-writer\n");
    entry("office", path("bin/office"), "StartupWMClass=Office\n");
    EXPECT_EQ(idOf("office-writer", "Office"), "writer");
    EXPECT_EQ(idOf("office", "Office"), "office");
}

TEST_F(ApplicationIdentitiesTest, theEntryWithTheClassAsItsIdNamesTheApplication) {
    entry("org.example.viewer", program("viewer"));
    EXPECT_EQ(idOf("Org.Example.Viewer"), "org.example.viewer");
}

TEST_F(ApplicationIdentitiesTest, anEntryThatNoMenuShowsStillNamesTheApplication) {
    entry("org.example.viewer", program("viewer"), "NoDisplay=true\n");
    EXPECT_EQ(idOf("org.example.viewer"), "org.example.viewer");
}

TEST_F(ApplicationIdentitiesTest, withoutAnEntryTheClassItselfIsTheIdentifier) {
    EXPECT_EQ(identify("win", "My Game"), (ApplicationIdentity{"my game", "My Game", std::nullopt}));
}

TEST_F(ApplicationIdentitiesTest, aWindowWithoutAProcessIsNamedByItsClass) {
    entry("org.example.viewer", program("viewer"));
    const DesktopEntries entries{surroundings()};
    const ApplicationIdentities identities{entries, processes};
    EXPECT_EQ(identities.identify({std::nullopt, "", "org.example.Viewer"}).bundleID, "org.example.viewer");
    EXPECT_EQ(identities.identify({pid, "", "org.example.Viewer"}).bundleID, "org.example.viewer"); // has just ended
}

TEST_F(ApplicationIdentitiesTest, withoutAClassTheProgramIsTheIdentifier) {
    runs("/opt/thing/Thing");
    EXPECT_EQ(identify("", ""), (ApplicationIdentity{"thing", std::nullopt, std::nullopt}));
    process = {};
    process.shortName = "python3";
    EXPECT_EQ(idOf(""), "python3");
}

TEST_F(ApplicationIdentitiesTest, withNothingAtAllThereIsNoIdentifier) {
    const DesktopEntries entries{surroundings()};
    const ApplicationIdentities identities{entries, processes};
    EXPECT_EQ(identities.identify({}), ApplicationIdentity{});
}

// By what runs.

TEST_F(ApplicationIdentitiesTest, theEntryThatRunsTheProgramNamesTheApplication) {
    entry("org.example.FileRoller", "file-roller %U");
    runs(program("file-roller"));
    EXPECT_EQ(idOf("File-roller"), "org.example.FileRoller");
}

TEST_F(ApplicationIdentitiesTest, ofSeveralEntriesOfAProgramTheOneOfTheClassIsMeant) {
    entry("org.example.Mail", program("mail"));
    entry("org.example.Calendar", "mail --calendar", "StartupWMClass=calendar\n");
    runs(path("bin/mail"));
    EXPECT_EQ(idOf("calendar"), "org.example.Calendar");
    EXPECT_EQ(idOf("whatever"), "org.example.Mail");
}

TEST_F(ApplicationIdentitiesTest, aBrowserIsToldByItsProgramWhateverItsWindowsSay) {
    entry("google-chrome", script("google-chrome-stable"));
    userEntry("chrome-abc-Default", "google-chrome-stable --app-id=abc", "StartupWMClass=crx_abc\n");
    runs("/opt/google/chrome/chrome");
    EXPECT_EQ(idOf("google-chrome", "Google-chrome"), "com.google.Chrome");
    EXPECT_EQ(identify("crx_abc", "Google-chrome").name, "google-chrome the Application");
    EXPECT_EQ(idOf("innocent", "Innocent"), "com.google.Chrome");
}

TEST_F(ApplicationIdentitiesTest, aClaimMakesNothingABrowserThatIsWatched) {
    entry("chromium", script("chromium"), "StartupWMClass=chromium\n");
    entry("com.google.Chrome", program("game"));
    userEntry("google-chrome", program("engine"), "StartupWMClass=engine\n");
    for (const auto* runs : {"/home/me/bin/web", "/usr/bin/xclock", "bin/game", "bin/engine", ""}) {
        const bool isHere = std::string_view{runs}.starts_with("bin/");
        this->runs(isHere ? path(runs) : runs);
        process.controlGroup = "/user.slice/app.slice/app-gnome-chromium-417.scope";
        for (const auto* claim : {"chromium", "Google-chrome", "com.google.Chrome", "engine", "com.apple.Safari", ""})
            EXPECT_FALSE(browserKind(idOf(claim, claim))) << claim << " by " << runs;
    }
    EXPECT_EQ(idOf("chromium", "Chromium"), "unconfirmed:com.google.Chrome");
}

TEST_F(ApplicationIdentitiesTest, aScriptWithABrowsersNameIsNotThatBrowser) {
    runs("/home/me/bin/chromium");
    process.isScript = true;
    EXPECT_EQ(idOf("chromium", "Chromium"), "unconfirmed:com.google.Chrome");
}

TEST_F(ApplicationIdentitiesTest, aWindowOfNobodyKnownIsNoBrowser) {
    const DesktopEntries entries{surroundings()};
    const ApplicationIdentities identities{entries, processes};
    EXPECT_EQ(identities.identify({std::nullopt, "chromium", "Chromium"}).bundleID, "unconfirmed:com.google.Chrome");
}

TEST_F(ApplicationIdentitiesTest, aSandboxedBrowserIsOneByItsProgramOnly) {
    for (const auto* sandbox : {"com.google.Chrome", "org.chromium.Chromium"}) {
        process.flatpakID = sandbox;
        runs("/app/extra/chrome");
        EXPECT_EQ(idOf("chrome"), "com.google.Chrome");
        runs("/app/bin/paint");
        EXPECT_EQ(idOf("chrome"), "unconfirmed:com.google.Chrome");
    }
}

TEST_F(ApplicationIdentitiesTest, aTerminalIsToldByItsProgramWhateverItsWindowsSay) {
    entry("org.example.Editor", program("editor"), "StartupWMClass=Editor\n");
    runs("/usr/bin/xterm");
    EXPECT_EQ(idOf("editor", "Editor"), "debian-xterm");
    runs("/usr/libexec/gnome-terminal-server");
    EXPECT_EQ(idOf("editor", "Editor"), "org.gnome.Terminal");
}

TEST_F(ApplicationIdentitiesTest, aClaimIsRefusedToTheProgramOfAnotherApplication) {
    entry("org.example.Editor", program("editor"), "StartupWMClass=Editor\n");
    entry("org.example.Game", program("game"));
    runs(path("bin/game"));
    EXPECT_EQ(idOf("Editor"), "org.example.Game");
}

TEST_F(ApplicationIdentitiesTest, aScriptMayHandOverToTheProgramOfAnotherApplication) {
    entry("org.example.Notes", script("notes"), "StartupWMClass=Notes\n");
    entry("org.example.Editor", program("editor"));
    runs(path("bin/editor"));
    EXPECT_EQ(idOf("Notes"), "org.example.Notes");
}

TEST_F(ApplicationIdentitiesTest, anInterpreterIsNobodysProgram) {
    entry("org.example.Notes", "python3 " + script("notes.py"));
    program("python3");
    runs("");
    process.shortName = "python3";
    EXPECT_EQ(idOf("Tk"), "tk");
    runs(path("bin/notes.py"));
    EXPECT_EQ(idOf("Tk"), "org.example.Notes");
}

// By where it runs.

TEST_F(ApplicationIdentitiesTest, aSandboxTellsItsApplication) {
    entry("org.example.Paint", "flatpak run org.example.Paint");
    process.flatpakID = "org.example.Paint";
    runs("/app/bin/paint");
    EXPECT_EQ(idOf("Krita"), "org.example.Paint");
    process.flatpakID = "org.mozilla.firefox";
    EXPECT_EQ(idOf("anything"), "org.mozilla.firefox");
}

TEST_F(ApplicationIdentitiesTest, aSnapIsToldByItsFiles) {
    runs("/snap/paint/12/usr/bin/paint");
    process.controlGroup = "/user.slice/snap.paint.canvas-0c3b4bb4-2e65-4dd4-8a93-3dd3a2ea31ce.scope";
    EXPECT_EQ(idOf("Paint"), "paint_canvas");
    process.controlGroup = "/user.slice/snap.other.tool-0c3b4bb4-2e65-4dd4-8a93-3dd3a2ea31ce.scope";
    EXPECT_EQ(idOf("Paint"), "paint_paint");
    runs("/snap/chromium/2/usr/lib/chromium-browser/chrome");
    EXPECT_EQ(idOf("Chromium"), "com.google.Chrome");
}

TEST_F(ApplicationIdentitiesTest, aScopeTellsTheApplicationThatRunsThroughAScript) {
    entry("org.example.OldJava", script("old-java"));
    process.controlGroup = "/user.slice/app.slice/app-gnome-org.example.OldJava-417.scope";
    EXPECT_EQ(idOf("sun-awt-X11-XFramePeer"), "org.example.OldJava");
}

TEST_F(ApplicationIdentitiesTest, whatAnApplicationStartsIsNotThatApplication) {
    entry("org.example.Editor", program("editor"));
    entry("terminator", script("terminator"));
    process.controlGroup = "/user.slice/app.slice/app-gnome-org.example.Editor-417.scope";
    EXPECT_EQ(idOf("Game"), "game");
    process.controlGroup = "/user.slice/app.slice/app-gnome-terminator-417.scope";
    EXPECT_EQ(idOf("Game"), "game");
}

// What the lock passes over.

TEST_F(ApplicationIdentitiesTest, aPartOfTheSystemIsToldByTheProgramThatTheSystemPutThere) {
    runs("/usr/bin/nautilus");
    EXPECT_EQ(idOf("org.gnome.Nautilus", "Org.gnome.Nautilus"), "com.apple.finder");
    runs("/usr/bin/plasmashell");
    EXPECT_EQ(idOf("plasmashell", "plasmashell"), "com.apple.dock");
    runs("/usr/bin/orca");
    EXPECT_EQ(idOf("Orca"), "com.apple.systemuiserver");
    runs("/nix/store/1/bin/.dolphin-wrapped");
    EXPECT_EQ(idOf("dolphin"), "com.apple.finder");
}

TEST_F(ApplicationIdentitiesTest, aPartOfTheSystemIsNamedByItsEntry) {
    const auto file = entry("org.gnome.Nautilus", program("nautilus"));
    runs(path("bin/nautilus"));
    EXPECT_EQ(identify("", ""), (ApplicationIdentity{"com.apple.finder", "org.gnome.Nautilus the Application", file}));
}

TEST_F(ApplicationIdentitiesTest, aClassMakesNothingAPartOfTheSystem) {
    entry("org.gnome.Nautilus", program("nautilus"), "StartupWMClass=nautilus\n");
    for (const auto* program : {"/usr/bin/xterm", "/usr/bin/unknown", ""}) {
        runs(program);
        for (const auto* claim : {"nautilus", "org.gnome.Nautilus", "gnome-shell", "com.apple.finder", "com.apple.dock",
                                  "com.apple.controlcenter", "com.apple.Spotlight", "plank", "onboard"})
            EXPECT_FALSE(isExempt(idOf(claim, claim))) << claim << " by " << program;
    }
}

TEST_F(ApplicationIdentitiesTest, aProgramOfTheUsersOwnIsNoPartOfTheSystem) {
    runs("/home/me/bin/nautilus", false);
    EXPECT_FALSE(isExempt(idOf("nautilus")));
    EXPECT_FALSE(isExempt(idOf("")));
}

TEST_F(ApplicationIdentitiesTest, anEntryOfTheUsersOwnMakesNothingAPartOfTheSystem) {
    userEntry("com.apple.finder", program("game"), "StartupWMClass=game\n");
    userEntry("org.gnome.Nautilus", path("bin/game"));
    runs(path("bin/game"));
    EXPECT_FALSE(isExempt(idOf("game")));
    EXPECT_FALSE(isExempt(idOf("com.apple.finder")));
    EXPECT_FALSE(isExempt(idOf("org.gnome.Nautilus")));
    EXPECT_FALSE(isExempt(idOf("")));
}

TEST_F(ApplicationIdentitiesTest, aSandboxOrAScopeMakesNothingAPartOfTheSystem) {
    process.flatpakID = "com.apple.dock";
    EXPECT_FALSE(isExempt(idOf("")));
    process = {};
    process.controlGroup = "/app-flatpak-com.apple.dock-1.scope";
    EXPECT_FALSE(isExempt(idOf("")));
    entry("com.apple.dock", script("dock"));
    process.controlGroup = "/app-gnome-com.apple.dock-1.scope";
    EXPECT_FALSE(isExempt(idOf("")));
    process = {};
    process.shortName = "com.apple.dock";
    EXPECT_FALSE(isExempt(idOf("")));
}

TEST_F(ApplicationIdentitiesTest, aNameThatOnlyBeginsLikeAPartOfTheSystemIsNone) {
    for (const auto* program : {"/usr/bin/cinnamon-something", "/usr/bin/nautilus2", "/usr/bin/my-dolphin"}) {
        runs(program);
        EXPECT_FALSE(isExempt(idOf("X"))) << program;
    }
}

// This program.

TEST_F(ApplicationIdentitiesTest, thisProcessIsThisProgram) {
    const DesktopEntries entries{surroundings()};
    const ApplicationIdentities identities{entries, processes};
    EXPECT_EQ(identities.identify({::getpid(), "x", "X"}).bundleID, IdentityTable::ownBundleID);
}

TEST_F(ApplicationIdentitiesTest, anotherProcessIsThisProgramOnlyByTheProgramThatTheSystemPutThere) {
    const std::string own{IdentityTable::ownBundleID};
    EXPECT_NE(idOf(own), own);
    runs("/home/me/Velmorin", false);
    EXPECT_NE(idOf(own), own);
    runs("/usr/bin/Velmorin");
    EXPECT_EQ(idOf(own), own);
}

// What the catalogue lists.

TEST_F(ApplicationIdentitiesTest, anEntryHasTheIdentifierThatItsProcessWillHave) {
    entry("org.gnome.Nautilus", program("nautilus"));
    entry("web-app", program("chromium") + " --app-id=abc");
    entry("org.example.Editor", program("editor"));
    entry("Alacritty", program("alacritty"));
    const DesktopEntries entries{surroundings()};
    const ApplicationIdentities identities{entries, processes};
    for (const auto& each : entries.all()) {
        processes.processes[pid] = {};
        processes.processes[pid].program = each.program;
        processes.processes[pid].isOfSystem = true;
        EXPECT_EQ(identities.identify({pid, "", ""}).bundleID, ApplicationIdentities::bundleID(each)) << each.id;
    }
    EXPECT_EQ(ApplicationIdentities::bundleID(*entries.withID("web-app")), "com.google.Chrome");
}

} // namespace
} // namespace velmorin
