#include "app/lock/LockOptions.h"

#include "core/foundation/JSONArguments.h"

#include <algorithm>

namespace velmorin {

const char* LockOptions::usage() {
    return R"(Usage: velmorin-lock [OPTION...] [PROFILE]

Runs a session of Velmorin on this desktop, without a window: while it is locked, every application is hidden that the
profile does not allow, new ones are asked to quit, and allowed browsers are kept to the allowed sites. What happens is
printed as one JSON object a line.

PROFILE is a file with a profile as JSON. What it leaves out has its default:

    {"name":"Writing","mode":"deep","deep":{"totalMinutes":25,"breakEveryMinutes":60,"breakMinutes":5},
     "allowedApps":[{"bundleID":"org.gnome.gedit","name":"Text Editor"}],"allowedDomains":["example.org"]}

Without PROFILE it takes up the session that the last run left behind, and ends when there is none.

  --intent TEXT   what the session is for
  --home DIR      where everything is kept, instead of $XDG_DATA_HOME/Velmorin
  --manual        warnings wait for "return" instead of answering themselves, and the end of the session does not end
                  the program
  --ticks         prints where the session stands, once a second
  --applications  prints the running applications with their identifiers, and ends
  --catalogue     the same for the installed ones
  --watchdog      as started by the watchdog: ends at once when there is no session to take up
  --help          this text

It listens for commands on its standard input, one a line:

    return            goes back from a warning
    exit              asks to end early, which begins a wait
    confirm REASON    ends after that wait, with a reason of at least 10 characters
    cancel            stays after all
    show              prints the state
    quit              ends the program; refused during a session, as Ctrl-C is

A session outlives this program: killed, it is started again within seconds.
)";
}

LockOptions LockOptions::parse(std::span<const std::string> arguments) {
    LockOptions options;
    options.launch = LaunchOptions::parse(arguments);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto& word = arguments[i];
        const auto value = [&]() -> const std::string& {
            if (i + 1 == arguments.size()) throw MalformedInput{"the option " + word + " needs a value"};
            return arguments[++i];
        };
        if (word == "--intent") {
            options.intent = value();
        } else if (word == "--home") {
            options.launch.homeDirectory = std::filesystem::absolute(value());
        } else if (word == "--manual") {
            options.returnsByItself = false;
        } else if (word == "--ticks") {
            options.tellsTicks = true;
        } else if (word == "--applications") {
            options.listsApplications = true;
        } else if (word == "--catalogue") {
            options.listsCatalogue = true;
        } else if (word == "--help" || word == "-h") {
            options.asksForHelp = true;
        } else if (word == "--watchdog") {
            // Read above.
        } else if (word.starts_with('-')) {
            throw MalformedInput{"there is no option " + word};
        } else if (options.profile) {
            throw MalformedInput{"one profile at a time: " + word};
        } else {
            options.profile = word;
        }
    }
    return options;
}

std::vector<std::string> LockOptions::forWatchdog(const std::filesystem::path& store) {
    return {"--home", store.string()};
}

} // namespace velmorin
