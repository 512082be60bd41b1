#pragma once

#include "app/platform/linux/browsers/KnownBrowsers.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {

/// Where the current user keeps things, as browsers ask for it.
struct UserFolders {
    std::filesystem::path home;
    std::filesystem::path configuration;

    /// From the environment. Absent where it names no home.
    static std::optional<UserFolders> current();
};

/// A file by which a browser of this user finds the host.
struct ManifestPlace {
    std::filesystem::path file;
    KnownBrowser::Family family;
};

/// Every place for the browsers of this user: those that are commonly used, and any other whose profiles are there.
std::vector<ManifestPlace> manifestPlaces(const UserFolders& folders);
/// The place in a folder that a Chromium is given as `--user-data-dir`.
ManifestPlace manifestPlace(const std::filesystem::path& userDataFolder);

/// Writes the file, and makes its folder where it is missing. What was there before stays whole until the new file is.
/// Says what failed; absent where nothing did.
std::optional<std::string> installManifest(const ManifestPlace& place, const std::filesystem::path& program);
/// Removes the file where it is there. Says what failed; absent where nothing did.
std::optional<std::string> removeManifest(const ManifestPlace& place);

} // namespace velmorin
