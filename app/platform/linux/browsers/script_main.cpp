// Reads the browsers of this user: takes a script as the script tool of another system does, and asks the hosts.

#include "app/platform/linux/browsers/RuntimeFolder.h"
#include "app/platform/linux/browsers/ScriptCommand.h"
#include "app/platform/linux/browsers/TabBlanking.h"
#include "app/platform/linux/browsers/TabListing.h"
#include "core/store/Descriptor.h"

#include <csignal>
#include <string_view>
#include <unistd.h>

namespace velmorin {
namespace {

constexpr std::string_view help =
    R"(Usage: velmorin-browser-script -e SCRIPT

Asks the running browsers of this user, by way of the browser extension, what the
extension's hosts (see velmorin-browser-host) know. SCRIPT is one of the two scripts
that the program has for browsers, to the letter, and addresses a browser by its
identifier:

  the list     prints "ID|||ADDRESS" and a line feed for each tab that a window
               shows. An ID holds only digits and stands for one window of one
               browser process. What could end a line is percent-encoded in ADDRESS.
  the blank    sends what the window with this ID shows to about:blank. An ID that
               is no window's does nothing.

Identifiers: com.google.Chrome (Chrome and Chromium), org.mozilla.firefox (Firefox,
Firefox ESR), com.brave.Browser, com.microsoft.edgemac, com.operasoftware.Opera and
com.vivaldi.Vivaldi.

Exit status
  0    the browser has answered
  1    it has not; standard error says why, with "-1743" in it where the browser
       runs but cannot be watched: it is more than ten seconds old and has no host,
       has had none for a second, its host or extension was stopped, or the folder
       of the hosts lets others in.

A browser that hangs is waited for without limit; SIGTERM ends that.

Environment
  XDG_RUNTIME_DIR    has the sockets of the hosts, in velmorin/browsers; without it
                     they are in /tmp/velmorin-UID/browsers
)";

/// Whether all of it was written.
bool print(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const auto count = uninterrupted([&] { return ::write(descriptor, text.data(), text.size()); });
        if (count <= 0) return false;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// Where the hosts' folder cannot be used there are no hosts, and a browser that runs cannot be watched.
ScriptOutcome withoutFolder(const KnownBrowser& browser, const std::string& reason) {
    return {1, "", reason + (runningBrowsers(browser).empty() ? "\n" : " (-1743)\n")};
}

ScriptOutcome runScript(std::string_view script) {
    const auto command = parseScript(script);
    if (!command) return {1, "", "this is none of the scripts for a browser that is known; see --help\n"};
    const auto folder = RuntimeFolder::open();
    if (!folder.isOpen()) return withoutFolder(*command->browser, folder.error());
    if (command->windowToBlank) return blankTab(*command->browser, folder, *command->windowToBlank);
    return TabListing{*command->browser, folder}.run();
}

int run(int count, char** arguments) {
    std::signal(SIGPIPE, SIG_IGN);
    const std::string_view option = count > 1 ? arguments[1] : "";
    if (option == "--help") return print(STDOUT_FILENO, help) ? 0 : 1;
    if (count != 3 || option != "-e") {
        print(STDERR_FILENO, "Usage: velmorin-browser-script -e SCRIPT, or --help\n");
        return 1;
    }
    const auto outcome = runScript(arguments[2]);
    if (!outcome.error.empty()) print(STDERR_FILENO, "velmorin-browser-script: " + outcome.error);
    return print(STDOUT_FILENO, outcome.output) ? outcome.status : 1;
}

} // namespace
} // namespace velmorin

int main(int count, char** arguments) {
    return velmorin::run(count, arguments);
}
