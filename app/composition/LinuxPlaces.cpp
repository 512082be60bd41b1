#include "app/composition/LinuxPlaces.h"

#include <cstdlib>
#include <pwd.h>
#include <system_error>
#include <unistd.h>

namespace velmorin {

namespace {

/// The user's home folder: by its variable, else as the system has it.
std::filesystem::path homeDirectory() {
    const char* home = std::getenv("HOME");
    if (home != nullptr && std::filesystem::path{home}.is_absolute()) return home;
    const passwd* user = ::getpwuid(::getuid());
    return user == nullptr ? std::filesystem::path{"/"} : std::filesystem::path{user->pw_dir};
}

/// A base directory of the desktop's: by its variable, where that is an absolute path, else below the home folder;
/// empty where there is no such place below it (freedesktop.org, base directories 0.8).
std::filesystem::path baseDirectory(const char* variable, const char* belowHome) {
    const char* value = std::getenv(variable);
    if (value != nullptr && std::filesystem::path{value}.is_absolute()) return value;
    return belowHome == nullptr ? std::filesystem::path{} : homeDirectory() / belowHome;
}

} // namespace

LinuxPlaces LinuxPlaces::ofThisProcess() {
    std::error_code unreadable;
    return {std::filesystem::read_symlink("/proc/self/exe", unreadable), baseDirectory("XDG_DATA_HOME", ".local/share"),
            baseDirectory("XDG_CONFIG_HOME", ".config"), baseDirectory("XDG_RUNTIME_DIR", nullptr)};
}

std::filesystem::path LinuxPlaces::companion(const std::string& name) const {
    auto beside = program.parent_path() / name;
    std::error_code missing;
    if (std::filesystem::exists(beside, missing)) return beside;
    return program.parent_path().parent_path() / "libexec" / "velmorin" / name;
}

std::filesystem::path LinuxPlaces::resources(const std::string& name) const {
    const auto prefix = program.parent_path().parent_path();
    auto installed = prefix / "share" / "velmorin" / name;
    std::error_code missing;
    if (std::filesystem::exists(installed, missing)) return installed;
    // A build tree is build/PRESET below the sources.
    return prefix.parent_path().parent_path() / "resources" / name;
}

std::filesystem::path LinuxPlaces::browserExtension() const {
    const auto prefix = program.parent_path().parent_path();
    auto installed = prefix / "share" / "velmorin" / "browser-extension";
    std::error_code missing;
    return std::filesystem::exists(installed, missing) ? installed : prefix / "browser-extension";
}

} // namespace velmorin
