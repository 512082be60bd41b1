#include "app/platform/linux/applications/ApplicationLauncher.h"

#include "app/platform/linux/applications/ApplicationScope.h"
#include "tests/applications/EntriesFixture.h"
#include "tests/support/BusDaemon.h"
#include "tests/support/LoopRunner.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <gio/gio.h>
#include <map>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace velmorin {
namespace {

class ApplicationLauncherTest : public EntriesFixture {
protected:
    ApplicationLauncher launcher() {
        entries.emplace(surroundings());
        return ApplicationLauncher{*entries, [this](const auto& contentType) -> std::optional<std::string> {
                                       const auto found = choices.find(contentType);
                                       if (found == choices.end()) return std::nullopt;
                                       return found->second;
                                   }};
    }
    std::optional<std::string> locate(const std::string& bundleID) { return launcher().locate(bundleID); }
    std::string file(const std::string& id) const { return path("system/applications/" + id + ".desktop"); }

    std::optional<DesktopEntries> entries;
    std::map<std::string, std::string> choices; ///< of the user, by kind of content
};

// Locating.

TEST_F(ApplicationLauncherTest, anApplicationIsFoundByItsIdentifier) {
    const auto editor = entry("org.example.Editor", program("editor"));
    EXPECT_EQ(locate("org.example.Editor"), editor);
    EXPECT_EQ(locate("org.example.Other"), std::nullopt);
    EXPECT_EQ(locate(""), std::nullopt);
}

TEST_F(ApplicationLauncherTest, ofSeveralOfOneProductTheFirstOfTheTableIsFound) {
    entry("chromium", program("chromium"));
    const auto chrome = entry("google-chrome", program("google-chrome-stable"));
    EXPECT_EQ(locate("com.google.Chrome"), chrome);
}

TEST_F(ApplicationLauncherTest, ofSeveralOfOneProductTheOneTheUserChoseIsFound) {
    const auto chromium = entry("chromium", program("chromium"));
    entry("google-chrome", program("google-chrome-stable"));
    choices["x-scheme-handler/http"] = "chromium";
    EXPECT_EQ(locate("com.google.Chrome"), chromium);
    choices["x-scheme-handler/http"] = "firefox";
    EXPECT_EQ(locate("com.google.Chrome"), file("google-chrome"));
}

TEST_F(ApplicationLauncherTest, theFileManagerIsTheOneThatTheUserChose) {
    entry("org.gnome.Nautilus", program("nautilus"));
    entry("thunar", program("Thunar"));
    EXPECT_EQ(locate("com.apple.finder"), file("org.gnome.Nautilus"));
    choices["inode/directory"] = "thunar";
    EXPECT_EQ(locate("com.apple.finder"), file("thunar"));
}

TEST_F(ApplicationLauncherTest, whatWouldTurnOutToBeSomethingElseIsNotFound) {
    entry("org.gnome.Nautilus", program("xterm"));
    entry("krusader", program("krusader"));
    choices["inode/directory"] = "krusader";
    EXPECT_EQ(locate("com.apple.finder"), std::nullopt);
    EXPECT_EQ(locate("com.apple.dock"), std::nullopt);
}

TEST_F(ApplicationLauncherTest, whatIsNotInstalledAnyMoreIsNotFound) {
    entry("org.example.Editor", "gone");
    EXPECT_EQ(locate("org.example.Editor"), std::nullopt);
}

TEST_F(ApplicationLauncherTest, aSnapIsFoundByWhatItIsCalled) {
    const auto snap = entry("chromium_chromium", program("snap"));
    EXPECT_EQ(locate("com.google.Chrome"), snap);
}

// Opening, with real processes.

class LaunchedProcessTest : public ApplicationLauncherTest {
protected:
    LaunchedProcessTest() { ::unsetenv("DBUS_SESSION_BUS_ADDRESS"); }

    /// An entry that runs a script, which writes down how it finds itself and ends.
    std::string telling(const std::string& more = {}) {
        script("tell", "{ echo \"startup=$DESKTOP_STARTUP_ID\"\n"
                       "echo \"display=$DISPLAY\"\n"
                       "echo \"socket=$NOTIFY_SOCKET\"\n"
                       "echo \"arguments=$#$*\"\n"
                       "set -- $(cat /proc/$$/stat)\n"
                       "echo \"pid=$$\"; echo \"parent=$4\"; echo \"session=$6\"\n"
                       "echo \"descriptors=\"$(ls -l /proc/$$/fd)\n"
                       "echo \"blocked=\"$(grep SigBlk /proc/$$/status); } > \"" +
                           path("told.new") + "\"\nmv \"" + path("told.new") + "\" \"" + path("told") + "\"\n");
        return entry("org.example.Teller", path("bin/tell") + " %U %i", more);
    }
    /// What it wrote, by key.
    std::map<std::string, std::string> told() {
        EXPECT_TRUE(runner.runUntil([this] { return std::filesystem::exists(path("told")); }));
        std::ifstream text{path("told")};
        std::map<std::string, std::string> result;
        for (std::string line; std::getline(text, line);)
            result[line.substr(0, line.find('='))] = line.substr(line.find('=') + 1);
        return result;
    }
    void open(const std::string& desktopFile, Workspace::Opening opening = Workspace::Opening::activating) {
        launcher().open(desktopFile, opening, 4711, ":81");
    }

    LoopRunner runner;
};

TEST_F(LaunchedProcessTest, theCommandRunsWithoutItsFieldCodes) {
    open(telling());
    EXPECT_EQ(told().at("arguments"), "0");
}

TEST_F(LaunchedProcessTest, theApplicationIsToldTheTimeOfTheLaunchAndTheDisplay) {
    open(telling());
    const auto found = told();
    EXPECT_TRUE(found.at("startup").starts_with("velmorin/org.example.Teller/")) << found.at("startup");
    EXPECT_TRUE(found.at("startup").ends_with("_TIME4711")) << found.at("startup");
    EXPECT_EQ(found.at("display"), ":81");
}

TEST_F(LaunchedProcessTest, inTheBackgroundItIsToldNotToComeToTheFront) {
    open(telling("StartupNotify=true\n"), Workspace::Opening::inBackground);
    EXPECT_TRUE(told().at("startup").ends_with("_TIME0"));
}

TEST_F(LaunchedProcessTest, itHasASessionOfItsOwnAndIsNobodysChild) {
    open(telling());
    const auto found = told();
    EXPECT_EQ(found.at("session"), found.at("pid"));
    EXPECT_NE(found.at("parent"), std::to_string(::getpid()));
    siginfo_t child{};
    EXPECT_EQ(::waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT), -1) << "a child is left to reap";
}

TEST_F(LaunchedProcessTest, nothingOfOursIsLeftOpenInIt) {
    const int left = ::open(write("ours", "").c_str(), O_RDONLY); // without close-on-exec
    ASSERT_GE(left, 0);
    ::setenv("NOTIFY_SOCKET", "/run/ours", 1);
    open(telling());
    const auto found = told();
    ::unsetenv("NOTIFY_SOCKET");
    ::close(left);
    EXPECT_EQ(found.at("socket"), "");
    const auto& descriptors = found.at("descriptors");
    EXPECT_EQ(descriptors.find(path("ours")), std::string::npos) << descriptors;
    EXPECT_NE(descriptors.find("0 -> /dev/null"), std::string::npos) << descriptors;
    EXPECT_NE(descriptors.find("2 -> /dev/null"), std::string::npos) << descriptors;
}

TEST_F(LaunchedProcessTest, noSignalIsKeptFromIt) {
    sigset_t set;
    sigset_t before;
    sigemptyset(&set);
    sigaddset(&set, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &set, &before);
    open(telling());
    const auto blocked = told().at("blocked");
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    EXPECT_TRUE(blocked.ends_with("0000000000000000")) << blocked;
}

TEST_F(LaunchedProcessTest, whatWantsATerminalGetsOne) {
    const std::string before = std::getenv("PATH");
    telling();
    std::filesystem::rename(path("bin/tell"), path("bin/gnome-terminal"));
    program("needs-terminal");
    ::setenv("PATH", (path("bin") + ":/usr/bin:/bin").c_str(), 1);
    open(entry("org.example.InTerminal", path("bin/needs-terminal"), "Terminal=true\n"));
    const auto arguments = told().at("arguments");
    ::setenv("PATH", before.c_str(), 1);
    EXPECT_TRUE(arguments.ends_with("/needs-terminal")) << arguments;
}

TEST_F(LaunchedProcessTest, whatIsMissingOrBrokenStartsNothing) {
    write("broken.desktop", "[Desktop Entry]\nType=Application\nName=B\nExec=\"" + path("bin/tell") + "\n");
    for (const auto& each :
         {file("missing"), path("broken.desktop"), write("empty.desktop", ""), path("bin"), std::string{}})
        open(each);
    open(telling("Hidden=true\n"));
    open(entry("org.example.Gone", path("bin/gone")));
    runner.run(0.2);
    EXPECT_FALSE(std::filesystem::exists(path("told")));
}

// On a session bus.

class LaunchOnBusTest : public LaunchedProcessTest {
protected:
    /// Someone on the bus who takes every call of an interface's one method, and writes down what came with it.
    class Callee {
    public:
        Callee(const BusDaemon& bus, const char* name, const char* path, const char* description) : m_peer{bus, name} {
            m_peer.serve(path, description, [this](const std::string&, GVariant* arguments) {
                calls.emplace_back(GText{g_variant_print(arguments, FALSE)}.get());
                return g_variant_new("()");
            });
        }

        std::vector<std::string> calls; ///< arguments, as D-Bus writes them

    private:
        BusPeer m_peer;
    };

    BusDaemon bus{"DBUS_SESSION_BUS_ADDRESS"};
};

TEST_F(LaunchOnBusTest, theServiceManagerIsAskedForAScopeOfItsOwn) {
    const Callee manager{bus, "org.freedesktop.systemd1", "/org/freedesktop/systemd1",
                         "<node><interface name='org.freedesktop.systemd1.Manager'>"
                         "<method name='StartTransientUnit'><arg type='s'/><arg type='s'/><arg type='a(sv)'/>"
                         "<arg type='a(sa(sv))'/></method></interface></node>"};
    open(telling());
    const auto pid = told().at("pid");
    ASSERT_TRUE(runner.runUntil([&] { return manager.calls.size() == 1; }));
    const auto& arguments = manager.calls.front();
    EXPECT_TRUE(arguments.starts_with("('app-velmorin-org.example.Teller-" + pid + ".scope', 'fail'")) << arguments;
    EXPECT_NE(arguments.find("('PIDs', <[uint32 " + pid + "]>)"), std::string::npos) << arguments;
}

TEST_F(LaunchOnBusTest, withoutAServiceManagerItRunsAllTheSame) {
    open(telling());
    EXPECT_FALSE(told().at("pid").empty());
}

TEST_F(LaunchOnBusTest, whatTheBusActivatesIsActivatedThere) {
    const Callee application{bus, "org.example.Activated", "/org/example/Activated",
                             "<node><interface name='org.freedesktop.Application'>"
                             "<method name='Activate'><arg type='a{sv}'/></method></interface></node>"};
    open(entry("org.example.Activated", telling(), "DBusActivatable=true\nStartupNotify=true\n"));
    ASSERT_TRUE(runner.runUntil([&] { return application.calls.size() == 1; }));
    EXPECT_NE(application.calls.front().find("_TIME4711"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(path("told")));
}

TEST_F(LaunchOnBusTest, theBusMayGoBetweenTwoLaunches) {
    open(telling());
    told();
    std::filesystem::remove(path("told"));
    bus.stop();
    runner.run(0.1);
    open(file("org.example.Teller"));
    EXPECT_FALSE(told().at("pid").empty());
}

TEST(ApplicationScopeTest, aUnitsNameHoldsTheIdWithoutWhatWouldPartIt) {
    EXPECT_EQ(ApplicationScope::name("org.example.Editor", 7), "app-velmorin-org.example.Editor-7.scope");
    EXPECT_EQ(ApplicationScope::name("file-roller", 7), "app-velmorin-file\\x2droller-7.scope");
    EXPECT_EQ(ApplicationScope::name(".ü", 7), "app-velmorin-\\x2e\\xc3\\xbc-7.scope");
}

} // namespace
} // namespace velmorin
