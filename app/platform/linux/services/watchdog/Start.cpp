#include "app/platform/linux/services/watchdog/Start.h"

#include "core/store/Descriptor.h"

#include <csignal>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

namespace velmorin {

namespace {

/// Becomes the command; ends the process when that cannot be.
[[noreturn]] void become(Words words) {
    std::vector<char*> pointers;
    for (auto& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    // A session manager has told this of its own start, at login.
    ::unsetenv("DESKTOP_AUTOSTART_ID");
    std::signal(SIGHUP, SIG_DFL);
    std::signal(SIGPIPE, SIG_DFL);
    ::execvp(pointers.front(), pointers.data());
    ::_exit(127);
}

} // namespace

Words inScope(const Words& command, const std::string& tag) {
    Words words{
        "systemd-run",
        "--user",
        "--scope",
        "--quiet",
        "--collect",
        "--slice=app.slice",
        // The program may refuse to end while a session runs, and a log-out shall not wait for it.
        "--property=TimeoutStopSec=5",
        "--unit=app-com.kestrava.velmorin-" + tag + ".scope",
        "--description=Velmorin",
        "--",
    };
    words.insert(words.end(), command.begin(), command.end());
    return words;
}

void apply(const EnvironmentChanges& changes) {
    for (const auto& [name, value] : changes.set)
        ::setenv(name.c_str(), value.c_str(), 1);
    for (const auto& name : changes.unset)
        ::unsetenv(name.c_str());
    for (const char* name : {"INVOCATION_ID", "JOURNAL_STREAM", "SYSTEMD_EXEC_PID", "TRIGGER_UNIT",
                             "TRIGGER_TIMER_REALTIME_USEC", "TRIGGER_TIMER_MONOTONIC_USEC"})
        ::unsetenv(name);
}

void startDetached(const Words& command) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::setsid();
        if (::fork() == 0) become(command);
        ::_exit(0);
    }
    if (child > 0) uninterrupted([&] { return ::waitpid(child, nullptr, 0); });
}

} // namespace velmorin
