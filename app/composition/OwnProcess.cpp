#include "app/composition/OwnProcess.h"

#include "app/platform/linux/applications/StartupContext.h"

#include <csignal>
#include <cstdlib>
#include <sys/prctl.h>

namespace velmorin::OwnProcess {

void takeName(const LinuxPlaces& places) {
    ::prctl(PR_SET_NAME, places.program.filename().c_str());
}

void forgetStart() {
    for (const auto* variable : ownVariables)
        ::unsetenv(variable);
}

void ignoreStops() {
    // Handlers rather than ignoring, which the programs that this one starts would inherit.
    struct sigaction action {};
    action.sa_handler = [](int) {};
    for (const int number : {SIGTSTP, SIGTTIN, SIGTTOU, SIGQUIT, SIGPIPE})
        ::sigaction(number, &action, nullptr);
}

} // namespace velmorin::OwnProcess
