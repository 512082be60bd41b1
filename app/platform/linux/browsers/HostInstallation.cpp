#include "app/platform/linux/browsers/HostInstallation.h"

#include "app/platform/linux/browsers/HostManifest.h"

#include <cstdlib>
#include <fstream>
#include <system_error>

namespace velmorin {

namespace {

using Path = std::filesystem::path;
using Family = KnownBrowser::Family;

/// A folder that the environment names; empty where it does not, or not by an absolute path.
Path folderFrom(const char* variable) {
    const char* const value = std::getenv(variable); // NOLINT(concurrency-mt-unsafe)
    const Path path{value != nullptr ? value : ""};
    return path.is_absolute() ? path : Path{};
}

bool isCommon(std::string_view profileFolder) {
    return profileFolder == "chromium" || profileFolder == "google-chrome";
}

std::string sentence(const std::string& what, const Path& path, const std::error_code& error) {
    return what + ' ' + path.string() + ": " + error.message();
}

} // namespace

std::optional<UserFolders> UserFolders::current() {
    UserFolders folders{folderFrom("HOME"), folderFrom("XDG_CONFIG_HOME")};
    if (folders.home.empty()) return std::nullopt;
    if (folders.configuration.empty()) folders.configuration = folders.home / ".config";
    return folders;
}

std::vector<ManifestPlace> manifestPlaces(const UserFolders& folders) {
    std::vector<ManifestPlace> places;
    std::error_code error;
    for (const auto& browser : knownBrowsers()) {
        for (const auto folder : browser.profileFolders) {
            const auto profiles = folders.configuration / folder;
            if (isCommon(folder) || std::filesystem::is_directory(profiles, error))
                places.push_back(manifestPlace(profiles));
        }
    }
    places.push_back({folders.home / ".mozilla/native-messaging-hosts" / HostManifest::fileName, Family::firefox});
    return places;
}

ManifestPlace manifestPlace(const Path& userDataFolder) {
    return {userDataFolder / "NativeMessagingHosts" / HostManifest::fileName, Family::chromium};
}

std::optional<std::string> installManifest(const ManifestPlace& place, const Path& program) {
    const auto content = HostManifest::content(place.family, program.string());
    if (content.empty()) return program.string() + " cannot be written into a manifest";
    std::error_code error;
    std::filesystem::create_directories(place.file.parent_path(), error);
    if (error) return sentence("cannot make", place.file.parent_path(), error);
    auto fresh = place.file;
    fresh += ".new";
    std::ofstream stream{fresh, std::ios::binary | std::ios::trunc};
    stream << content;
    stream.close();
    if (!stream) {
        std::filesystem::remove(fresh, error);
        return "cannot write " + fresh.string();
    }
    std::filesystem::rename(fresh, place.file, error);
    if (error) return sentence("cannot write", place.file, error);
    return std::nullopt;
}

std::optional<std::string> removeManifest(const ManifestPlace& place) {
    std::error_code error;
    std::filesystem::remove(place.file, error);
    if (error) return sentence("cannot remove", place.file, error);
    return std::nullopt;
}

} // namespace velmorin
