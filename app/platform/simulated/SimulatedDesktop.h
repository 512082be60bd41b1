#pragma once

#include "app/platform/simulated/Journal.h"
#include "app/platform/simulated/SimulatedBrowsers.h"
#include "app/platform/simulated/SimulatedDisk.h"
#include "app/platform/simulated/SimulatedInstalledApplications.h"
#include "app/platform/simulated/SimulatedRelay.h"
#include "app/platform/simulated/SimulatedServices.h"
#include "app/platform/simulated/SimulatedWorkspace.h"
#include "app/platform/simulated/VirtualTime.h"

#include <cstdint>

namespace velmorin {

/// A whole machine: everything that outlives the program's processes, on one virtual clock. Its parts serve the program
/// as seams; their own operations are the control side, which the program never sees.
struct SimulatedDesktop {
    /// `files` hold what the disk holds, and must outlive this.
    SimulatedDesktop(Date start, Files& files, std::uint64_t seed = 1)
        : time{start}, journal{[this] { return time.elapsed(); }}, disk{files, journal}, random{seed} {}
    SimulatedDesktop(const SimulatedDesktop&) = delete;
    SimulatedDesktop& operator=(const SimulatedDesktop&) = delete;

    VirtualTime time;
    Journal journal;
    SimulatedDisk disk;
    SimulatedWorkspace workspace{time, journal};
    SimulatedInstalledApplications installedApplications;
    SimulatedBrowsers browsers{time, journal};
    SimulatedRelay relay{time, journal};
    SimulatedSounds sounds{journal};
    SimulatedShortcuts shortcuts{journal};
    SimulatedServiceManager serviceManager{journal};
    SimulatedRandom random;
};

} // namespace velmorin
