#pragma once

#include "app/platform/linux/browsers/KnownBrowsers.h"

#include <optional>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace velmorin {

/// What the system tells about a process.
struct ProcessStatus {
    bool isStopped; ///< by a signal or a debugger
    pid_t parent;
    double age; ///< in seconds
};

/// The main process of a running browser.
struct BrowserProcess {
    pid_t id;
    double age; ///< in seconds
};

/// Absent for a process that has gone or is only waiting to be reaped.
std::optional<ProcessStatus> processStatus(pid_t process);

/// The content of a process's `stat` file in `/proc`, where the machine has been up for `uptime` seconds and counts
/// `ticks` a second. Absent for text that is no such file, and for a process that is only waiting to be reaped.
std::optional<ProcessStatus> parseProcessStatus(std::string_view text, double uptime, double ticks);

/// The browser that a process runs; null for another program, and for one that this user may not look at.
const KnownBrowser* browserOfProcess(pid_t process);

/// The main processes of a browser that this user runs, in the order of their numbers. Not counted are the processes
/// that a browser starts for its own purposes, and browsers that were started to have no windows.
std::vector<BrowserProcess> runningBrowsers(const KnownBrowser& browser);

/// Whether a command line, its arguments ended by zero bytes as `/proc` shows them, is that of a main process with
/// windows.
bool isMainProcess(std::string_view commandLine);

/// All processes that descend from this one and are stopped.
std::vector<pid_t> stoppedDescendants(pid_t ancestor);

/// Whether a process is a part of this browser, or one that hides what it runs, as parts of browsers do.
bool mayBelongTo(const KnownBrowser& browser, pid_t process);

} // namespace velmorin
