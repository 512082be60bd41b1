#include "app/platform/linux/applications/DesktopEntries.h"

#include "tests/applications/EntriesFixture.h"
#include "tests/support/LoopRunner.h"

#include <cstdlib>
#include <filesystem>

namespace velmorin {
namespace {

class DesktopEntriesTest : public EntriesFixture {
protected:
    bool isShown(const std::string& id, std::vector<std::string> desktops = {}) {
        const DesktopEntries entries{surroundings(std::move(desktops))};
        const auto* found = entries.withID(id);
        return found != nullptr && found->isShown;
    }
};

TEST_F(DesktopEntriesTest, anEntryTellsWhatItHolds) {
    const auto file = entry("org.example.Editor", "editor --new %F", "Icon=pen\nStartupWMClass=Editor\n");
    const auto editor = program("editor");
    const DesktopEntries entries{surroundings()};
    const auto* found = entries.withID("org.example.Editor");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->path, file);
    EXPECT_EQ(found->name, "org.example.Editor the Application");
    EXPECT_EQ(found->program, editor);
    EXPECT_EQ(found->startupWMClass, "Editor");
    EXPECT_EQ(found->icon, "pen");
    EXPECT_TRUE(found->isLaunchable && found->isShown && !found->isInTerminal);
}

TEST_F(DesktopEntriesTest, theFirstFolderWithAnIdWins) {
    entry("editor", program("editor"));
    userEntry("editor", program("other"));
    const DesktopEntries entries{surroundings()};
    ASSERT_EQ(entries.all().size(), 1);
    EXPECT_EQ(entries.all().front().program, path("bin/other"));
}

TEST_F(DesktopEntriesTest, aHiddenEntryTakesThoseOfLaterFoldersAway) {
    entry("editor", program("editor"));
    userEntry("editor", program("editor"), "Hidden=true\n");
    EXPECT_TRUE(DesktopEntries{surroundings()}.all().empty());
}

TEST_F(DesktopEntriesTest, foldersBelowBecomePartOfTheId) {
    entry("kde/tools/editor", program("editor"));
    const DesktopEntries entries{surroundings()};
    EXPECT_NE(entries.withID("kde-tools-editor"), nullptr);
}

TEST_F(DesktopEntriesTest, lookUpsPreferTheVeryNameAndThenIgnoreCase) {
    entry("editor", program("a"), "StartupWMClass=win\n");
    entry("Editor", program("b"), "StartupWMClass=WIN\n");
    const DesktopEntries entries{surroundings()};
    EXPECT_EQ(entries.withID("editor")->id, "editor");
    EXPECT_EQ(entries.withID("Editor")->id, "Editor");
    EXPECT_NE(entries.withID("EDITOR"), nullptr);
    EXPECT_EQ(entries.withWindowClass("win")->id, "editor");
    EXPECT_EQ(entries.withWindowClass("WIN")->id, "Editor");
    EXPECT_EQ(entries.withID("edit"), nullptr);
    EXPECT_EQ(entries.withWindowClass(""), nullptr);
}

TEST_F(DesktopEntriesTest, ofTwoThatClaimAClassTheShownOneHasIt) {
    entry("a", program("a"), "StartupWMClass=Win\nNoDisplay=true\n");
    entry("b", program("b"), "StartupWMClass=Win\n");
    EXPECT_EQ(DesktopEntries{surroundings()}.withWindowClass("Win")->id, "b");
}

TEST_F(DesktopEntriesTest, programsAreFoundThroughLinksAndWrappers) {
    const auto editor = program("editor-3.1");
    std::filesystem::create_symlink(editor, path("bin/editor"));
    entry("plain", "editor %F");
    entry("env", "env LANG=C " + path("bin/editor"));
    entry("quoted", "\"" + path("bin/editor") + "\" --x");
    const DesktopEntries entries{surroundings()};
    EXPECT_EQ(entries.running(editor).size(), 3);
    EXPECT_TRUE(entries.running(path("bin/editor")).empty());
    EXPECT_TRUE(entries.running("").empty());
}

TEST_F(DesktopEntriesTest, theEntryThatStandsForAProgramComesFirst) {
    const auto mail = program("mail");
    entry("a-hidden", "mail", "NoDisplay=true\n");
    entry("b-compose", "mail --compose");
    entry("org.example.Mail", "mail --main");
    entry("z-plain", "mail %u");
    const DesktopEntries entries{surroundings()};
    std::vector<std::string> ids;
    for (const auto* each : entries.running(mail))
        ids.push_back(each->id);
    EXPECT_EQ(ids, (std::vector<std::string>{"org.example.Mail", "z-plain", "b-compose", "a-hidden"}));
}

TEST_F(DesktopEntriesTest, aLinkToALauncherIsNoProgramOfItsOwn) {
    std::filesystem::create_symlink(program("snap"), path("bin/paint"));
    entry("paint_paint", path("bin/paint"));
    const DesktopEntries entries{surroundings()};
    EXPECT_EQ(entries.withID("paint_paint")->program, "");
    EXPECT_TRUE(entries.withID("paint_paint")->isLaunchable);
}

TEST_F(DesktopEntriesTest, whatIsNotInstalledIsNotShown) {
    entry("gone", "gone");
    entry("tried", program("here"), "TryExec=gone\n");
    entry("no-command", "");
    entry("broken-command", "\"here");
    entry("folder", path("bin"));
    entry("dbus", "", "DBusActivatable=true\n");
    for (const auto* id : {"gone", "tried", "no-command", "broken-command", "folder"})
        EXPECT_FALSE(isShown(id)) << id;
    EXPECT_TRUE(isShown("dbus"));
}

TEST_F(DesktopEntriesTest, entriesAreShownWhereTheyAreMeantToBe) {
    entry("all", program("x"));
    entry("only", program("x"), "OnlyShowIn=GNOME;XFCE;\n");
    entry("not", program("x"), "NotShowIn=KDE;\n");
    entry("never", program("x"), "NoDisplay=true\n");
    EXPECT_TRUE(isShown("all", {"KDE"}));
    EXPECT_TRUE(isShown("only", {"ubuntu", "GNOME"}));
    EXPECT_FALSE(isShown("only", {"KDE"}));
    EXPECT_FALSE(isShown("only"));
    EXPECT_FALSE(isShown("not", {"KDE"}));
    EXPECT_TRUE(isShown("not", {"XFCE"}));
    EXPECT_FALSE(isShown("never"));
}

TEST_F(DesktopEntriesTest, namesAreInTheSessionsLanguage) {
    const std::string before = std::getenv("LANGUAGE") != nullptr ? std::getenv("LANGUAGE") : "";
    ::setenv("LANGUAGE", "fa", 1);
    entry("editor", program("editor"), "Name[fa]=ویرایشگر\nName[de]=Schreiber\n");
    EXPECT_EQ(DesktopEntries{surroundings()}.withID("editor")->name, "ویرایشگر");
    before.empty() ? ::unsetenv("LANGUAGE") : ::setenv("LANGUAGE", before.c_str(), 1);
}

TEST_F(DesktopEntriesTest, whatIsNoEntryIsPassedOver) {
    write("system/applications/empty.desktop", "");
    write("system/applications/text.desktop", "hello");
    write("system/applications/bytes.desktop", "[Desktop Entry]\nType=Application\nName=\xff\xfe\nExec=\xff\n");
    write("system/applications/link.desktop", "[Desktop Entry]\nType=Link\nName=Link\nURL=http://x\n");
    write("system/applications/note.txt", "[Desktop Entry]\nType=Application\nName=N\nExec=x\n");
    std::filesystem::create_symlink("nowhere", path("system/applications/dangling.desktop"));
    std::filesystem::create_symlink(".", path("system/applications/circle"));
    std::filesystem::create_directory(path("system/applications/folder.desktop"));
    const DesktopEntries entries{surroundings()};
    ASSERT_LE(entries.all().size(), 1); // the one of bytes may stay, but unnamed
    EXPECT_EQ(entries.withID("note"), nullptr);
}

TEST_F(DesktopEntriesTest, withoutAnyFolderThereIsNothing) {
    const DesktopEntries entries{{{path("missing"), ""}, {}, {}}};
    EXPECT_TRUE(entries.all().empty());
    EXPECT_EQ(entries.withID("x"), nullptr);
}

// Changes.

class DesktopEntriesChangesTest : public DesktopEntriesTest {
protected:
    bool eventually(const std::function<bool()>& condition) { return m_runner.runUntil(condition); }

    LoopRunner m_runner;
};

TEST_F(DesktopEntriesChangesTest, newChangedAndRemovedEntriesAreNoticed) {
    program("editor");
    entry("editor", "editor");
    const DesktopEntries entries{surroundings()};
    EXPECT_EQ(entries.all().size(), 1);
    const auto added = entry("added", "editor");
    EXPECT_TRUE(eventually([&] { return entries.withID("added") != nullptr; }));
    entry("added", "editor", "StartupWMClass=New\n");
    EXPECT_TRUE(eventually([&] { return entries.withWindowClass("New") != nullptr; }));
    std::filesystem::remove(added);
    EXPECT_TRUE(eventually([&] { return entries.withID("added") == nullptr; }));
}

TEST_F(DesktopEntriesChangesTest, aFolderThatComesLaterIsNoticed) {
    program("editor");
    const DesktopEntries entries{surroundings()};
    EXPECT_TRUE(entries.all().empty());
    userEntry("editor", "editor");
    EXPECT_TRUE(eventually([&] { return entries.withID("editor") != nullptr; }));
    userEntry("below/editor", "editor");
    EXPECT_TRUE(eventually([&] { return entries.withID("below-editor") != nullptr; }));
    userEntry("below/second", "editor");
    EXPECT_TRUE(eventually([&] { return entries.withID("below-second") != nullptr; }));
}

} // namespace
} // namespace velmorin
