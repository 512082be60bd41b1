#pragma once

#include "app/composition/LinuxPlaces.h"
#include "app/platform/linux/applications/ApplicationIdentities.h"
#include "app/platform/linux/applications/ApplicationLauncher.h"
#include "app/platform/linux/applications/DesktopEntries.h"
#include "app/platform/linux/applications/IconTheme.h"
#include "app/platform/linux/applications/LinuxInstalledApplications.h"
#include "app/platform/linux/applications/ProcFS.h"
#include "app/platform/linux/browsers/LinuxBrowserSetup.h"
#include "app/platform/linux/loop/LoopTimers.h"
#include "app/platform/linux/loop/MainLoop.h"
#include "app/platform/linux/relay/CurlRelayTransport.h"
#include "app/platform/linux/services/LinuxApplication.h"
#include "app/platform/linux/services/LinuxServiceManager.h"
#include "app/platform/linux/services/LinuxShortcuts.h"
#include "app/platform/linux/services/LinuxSounds.h"
#include "app/platform/linux/x11/X11Connection.h"
#include "app/platform/linux/x11/X11Workspace.h"
#include "app/platform/posix/PosixChildProcesses.h"
#include "app/platform/posix/SystemClock.h"
#include "app/platform/posix/SystemRandom.h"
#include "core/store/PosixFiles.h"

#include <filesystem>
#include <functional>
#include <memory>

namespace velmorin {

/// Every seam of the engine on a Linux desktop, made in the order in which they need each other. Main thread.
struct LinuxSeams {
    /// The program's own identifier.
    static constexpr const char* bundleID = "com.kestrava.velmorin";

    /// `storeDirectory` is where everything is kept. `display` must be there.
    LinuxSeams(LinuxPlaces where, std::filesystem::path storeDirectory, MainLoop& mainLoop,
               std::unique_ptr<X11Connection> display);
    LinuxSeams(const LinuxSeams&) = delete;
    LinuxSeams& operator=(const LinuxSeams&) = delete;

    LinuxPlaces places;
    std::filesystem::path directory;
    MainLoop& loop;
    PosixFiles files;
    SystemClock clock;
    SystemRandom random;
    LoopTimers timers;
    PosixChildProcesses childProcesses;
    std::unique_ptr<X11Connection> connection;
    DesktopEntries entries;
    ProcFS processes;
    ApplicationIdentities identities;
    ApplicationLauncher launcher;
    IconTheme icons;
    LinuxInstalledApplications installedApplications;
    X11Workspace workspace;
    std::function<void()> onQuitRequest; ///< somebody asks this program to end; assigned once by its owner
    LinuxApplication application;
    LinuxSounds sounds;
    LinuxShortcuts shortcuts;
    LinuxServiceManager serviceManager;
    CurlRelayTransport relay;
    LinuxBrowserSetup browserSetup;
};

} // namespace velmorin
