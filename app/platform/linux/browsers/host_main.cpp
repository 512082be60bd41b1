// The native-messaging host: a browser starts it for the extension; scripts reach it by its socket. It also registers
// itself with the browsers of a user.

#include "app/platform/linux/browsers/BrowserHost.h"
#include "app/platform/linux/browsers/BrowserProcesses.h"
#include "app/platform/linux/browsers/HostInstallation.h"
#include "app/platform/linux/browsers/HostManifest.h"
#include "app/platform/linux/browsers/RuntimeFolder.h"

#include <csignal>
#include <cstdio>
#include <string>
#include <string_view>
#include <sys/signalfd.h>
#include <unistd.h>
#include <vector>

namespace velmorin {
namespace {

constexpr const char* help =
    R"(Usage: velmorin-browser-host --install [FOLDER]
       velmorin-browser-host --uninstall [FOLDER]
       velmorin-browser-host --manifest chromium|firefox PROGRAM
       velmorin-browser-host --help

The native-messaging host of the browser extension. Browsers start it by themselves,
with the extension's name as an argument; it then speaks with the extension on its
standard input and output, and with velmorin-browser-script on a socket, and ends
when the browser closes the connection.

  --install [FOLDER]     tells the browsers of this user where this program is, by a
                         file named com.kestrava.velmorin.json in the folder that
                         each looks into:
                           ~/.config/chromium/NativeMessagingHosts/
                           ~/.config/google-chrome/NativeMessagingHosts/
                           ~/.mozilla/native-messaging-hosts/
                         and those of Chrome's other channels, Brave, Edge, Opera and
                         Vivaldi where they are in use. With FOLDER only
                         FOLDER/NativeMessagingHosts/, for a Chromium that is started
                         with --user-data-dir=FOLDER.
  --uninstall [FOLDER]   removes these files
  --manifest FAMILY PROGRAM
                         prints such a file, for a host at the absolute path PROGRAM

Exit status: 0 for success, 1 where something failed, which standard error tells.

Environment
  HOME, XDG_CONFIG_HOME  where the browsers of this user keep their configuration
  XDG_RUNTIME_DIR        gets the socket, as velmorin/browsers/BROWSER.PID.HOSTPID;
                         without it, it is in /tmp/velmorin-UID/browsers
)";

int fail(const std::string& reason) {
    std::fprintf(stderr, "velmorin-browser-host: %s\n", reason.c_str());
    return 1;
}

/// A descriptor that can be read once the host was asked to end; from now on these signals do nothing else.
Descriptor signalsToEnd() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&signals, signal);
    ::sigprocmask(SIG_BLOCK, &signals, nullptr);
    return Descriptor{::signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC)};
}

int serve() {
    std::signal(SIGPIPE, SIG_IGN);
    const auto browser = ::getppid();
    const auto* const known = browserOfProcess(browser);
    if (known == nullptr) return fail("it was not started by a browser that is known");
    const auto folder = RuntimeFolder::open();
    if (!folder.isOpen()) return fail(folder.error());
    const auto signals = signalsToEnd();
    const auto socket = HostSocket::listen(folder, {std::string{known->identity}, browser, ::getpid()});
    if (!signals.isOpen() || !socket) return fail("there can be no socket in " + folder.pathTo(""));
    switch (BrowserHost{*socket, STDIN_FILENO, STDOUT_FILENO, signals.number()}.run()) {
    case BrowserHost::End::browserLeft:
    case BrowserHost::End::asked: return 0;
    case BrowserHost::End::malformed: return fail("the browser has sent what the extension never would");
    case BrowserHost::End::failed: break;
    }
    return fail("the system refuses what it needs");
}

std::vector<ManifestPlace> placesIn(const std::vector<std::string>& arguments) {
    if (arguments.size() > 1) return {manifestPlace(std::filesystem::absolute(arguments[1]))};
    const auto folders = UserFolders::current();
    return folders ? manifestPlaces(*folders) : std::vector<ManifestPlace>{};
}

/// Does it everywhere, also where one place fails, and says where.
template <class Change>
int change(const std::vector<ManifestPlace>& places, const char* done, Change change) {
    if (places.empty()) return fail("HOME is not set");
    int status = 0;
    for (const auto& place : places) {
        if (const auto failure = change(place))
            status = fail(*failure);
        else
            std::printf("%s %s\n", done, place.file.c_str());
    }
    return status;
}

int printManifest(const std::string& family, const std::string& program) {
    if (family != "chromium" && family != "firefox") return fail("a manifest is for chromium or for firefox");
    const auto content = HostManifest::content(
        family == "firefox" ? KnownBrowser::Family::firefox : KnownBrowser::Family::chromium, program);
    if (content.empty()) return fail("the program needs an absolute path");
    return std::fputs(content.c_str(), stdout) >= 0 ? 0 : 1;
}

int run(const std::vector<std::string>& arguments) {
    const std::string first = arguments.empty() ? "" : arguments[0];
    const std::string second = arguments.size() > 1 ? arguments[1] : "";
    if (HostManifest::isStartedFor(first, second)) return serve();
    if (first == "--help") return std::fputs(help, stdout) >= 0 ? 0 : 1;
    if (first == "--manifest" && arguments.size() == 3) return printManifest(second, arguments[2]);
    if (first == "--install" && arguments.size() <= 2) {
        std::error_code error;
        const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
        return change(placesIn(arguments), "wrote", [&](const auto& place) { return installManifest(place, program); });
    }
    if (first == "--uninstall" && arguments.size() <= 2) return change(placesIn(arguments), "removed", removeManifest);
    std::fputs("Browsers start this program by themselves; to register it with them, see --help.\n", stderr);
    return 1;
}

} // namespace
} // namespace velmorin

int main(int count, char** arguments) {
    return velmorin::run({arguments + 1, arguments + count});
}
