#pragma once

#include "app/platform/linux/services/watchdog/Start.h"
#include "core/store/Descriptor.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace velmorin {

/// What the keeper of a session without a service manager works on.
struct KeeperJob {
    std::string processName;     ///< of the program that shall live
    std::filesystem::path file;  ///< the job: the program and its arguments, each with a zero byte behind it
    std::filesystem::path entry; ///< has the keeper started at the next login
};

/// The words of a job; and back.
std::string writtenWords(const Words& words);
Words readWords(std::string_view text);

/// Brings the program back for as long as there is a job: looks every 3 seconds whether it lives. Lives as long as
/// this very job file, the entry and the display do, and is the only one for it. For a process of its own.
class Keeper {
public:
    explicit Keeper(KeeperJob job);

    /// Becomes the one keeper of the job, in the place of one that may be there. False when that cannot be.
    bool takeOver();
    /// Keeps, until there is nothing left to keep.
    void run();

private:
    bool isWanted() const;
    void look();
    void waitUntil(double moment);
    void start() const;

    KeeperJob m_job;
    Descriptor m_file;
    Descriptor m_changes; ///< tells when one of the files goes
    int m_looksWithoutDisplay = 0;
};

/// Runs `work` in a process of its own that belongs to nobody. It must call `ready` when its outcome is known; this
/// returns then, with what that was told, or false when the process ended before. Standard streams lead nowhere there.
bool detached(const std::function<void(const std::function<void(bool)>& ready)>& work);

} // namespace velmorin
