#pragma once

#include "app/engine/LaunchOptions.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace velmorin {

/// What the command line of `velmorin-lock` asks for.
struct LockOptions {
    LaunchOptions launch; ///< with the directory of the store where one was named
    std::optional<std::filesystem::path> profile;
    std::string intent;
    bool returnsByItself = true; ///< whether warnings answer themselves, since there is no screen to do it on
    bool tellsTicks = false;
    bool listsApplications = false;
    bool listsCatalogue = false;
    bool asksForHelp = false;

    static const char* usage();

    /// Throws MalformedInput with what is wrong with the arguments, in words.
    static LockOptions parse(std::span<const std::string> arguments);

    /// The arguments with which the watchdog starts the program again, besides its own. The directory of the store is
    /// always named: the session that starts it may have other places. Warnings then answer themselves, whatever was
    /// asked for, since nobody listens to that process.
    static std::vector<std::string> forWatchdog(const std::filesystem::path& store);
};

} // namespace velmorin
