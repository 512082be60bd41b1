// The look of the watchdog: whether the program lives, and its start where it does not. A service manager runs it every
// 3 seconds; where there is none, it stays and does so by itself.

#include "app/platform/linux/services/watchdog/Keeper.h"
#include "app/platform/linux/services/watchdog/ProcessLookup.h"
#include "app/platform/linux/services/watchdog/SessionEnvironment.h"
#include "app/platform/linux/services/watchdog/Start.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace velmorin {
namespace {

constexpr int badUsage = 2;

int usage() {
    std::fputs(
        "Usage: velmorin-watchdog check NAME ENVIRONMENT PROGRAM [ARGUMENT]...\n"
        "       velmorin-watchdog keep NAME JOB ENTRY\n"
        "\n"
        "check   where no process of this user is called NAME, starts PROGRAM in a scope of the service manager and\n"
        "        in the environment of the graphical session, of which the file ENVIRONMENT may know more\n"
        "keep    goes into the background and starts the program of the file JOB whenever no process of this\n"
        "        user is called NAME, for as long as the files JOB and ENTRY are there\n",
        stderr);
    return badUsage;
}

std::string contentOf(const std::string& path) {
    std::ifstream file{path, std::ios::binary};
    return {std::istreambuf_iterator<char>{file}, {}};
}

/// Something that no other start has.
std::string tag() {
    const auto moment = std::chrono::steady_clock::now().time_since_epoch().count();
    return std::to_string(::getpid()) + "-" + std::to_string(moment);
}

int check(const std::string& name, const std::string& environmentFile, const Words& command) {
    if (isProcessAlive(name, ::getuid())) return 0;
    const auto saved = readEnvironment(contentOf(environmentFile));
    const auto changes = changesForSession(ownEnvironment(), saved, canReachDisplay);
    // Without a session to show itself in, the program could only fail.
    if (!changes) return 0;
    apply(*changes);
    startDetached(inScope(command, tag()));
    // Who looks next shall find it.
    constexpr std::chrono::milliseconds pause{10};
    constexpr std::chrono::seconds patience{2};
    for (auto waited = 0 * pause; !isProcessAlive(name, ::getuid()) && waited < patience; waited += pause)
        std::this_thread::sleep_for(pause);
    return 0;
}

int keep(KeeperJob job) {
    const bool isKept = detached([&](const auto& ready) {
        Keeper keeper{std::move(job)};
        const bool isAlone = keeper.takeOver();
        ready(isAlone);
        if (isAlone) keeper.run();
    });
    return isKept ? 0 : 1;
}

int run(const Words& words) {
    constexpr std::size_t fewestToCheck = 4;
    constexpr std::size_t wordsToKeep = 4;
    if (words.size() >= fewestToCheck && words[0] == "check")
        return check(words[1], words[2], {words.begin() + fewestToCheck - 1, words.end()});
    if (words.size() == wordsToKeep && words[0] == "keep") return keep({words[1], words[2], words[3]});
    return usage();
}

} // namespace
} // namespace velmorin

int main(int count, char** words) {
    return velmorin::run({words + 1, words + count});
}
