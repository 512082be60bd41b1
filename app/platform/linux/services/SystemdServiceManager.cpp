#include "app/platform/linux/services/SystemdServiceManager.h"

#include "app/platform/linux/services/UnitText.h"
#include "app/platform/linux/services/UserSystemd.h"
#include "app/platform/linux/services/watchdog/SessionEnvironment.h"
#include "core/store/AtomicFile.h"

#include <algorithm>
#include <array>
#include <glib.h>
#include <unistd.h>
#include <utility>

namespace velmorin {

namespace fs = std::filesystem;

namespace {

/// What has a unit start at login.
struct Wish {
    std::string_view target;
    std::string_view unit;
};
constexpr std::array<Wish, 2> wishes{{
    {"default.target", UnitText::timer},
    // The timer may look long before there is a display.
    {"graphical-session.target", UnitText::service},
}};

fs::path wishFile(const fs::path& folder, const Wish& wish) {
    return folder / (std::string{wish.target} + ".wants") / wish.unit;
}

bool link(const fs::path& target, const fs::path& place) {
    std::error_code failure;
    fs::create_directories(place.parent_path(), failure);
    fs::remove(place, failure);
    fs::create_symlink(target, place, failure);
    return !failure;
}

/// No program can be handed a zero byte, and units hold nothing but UTF-8.
bool canBePassed(const std::vector<std::string>& words) {
    return std::ranges::all_of(words, [](const std::string& word) {
        // A zero byte is none here either.
        return g_utf8_validate(word.data(), static_cast<gssize>(word.size()), nullptr) != FALSE;
    });
}

} // namespace

SystemdServiceManager::SystemdServiceManager(WatchdogPlace place, Files& files)
    : m_place{std::move(place)}, m_files{files} {}

void SystemdServiceManager::install(const std::vector<std::string>& launchArguments) {
    tryInstall(launchArguments);
}

void SystemdServiceManager::remove() {
    UserSystemd systemd{m_place.runtimeDirectory, patience};
    remove(systemd);
}

bool SystemdServiceManager::tryInstall(const std::vector<std::string>& launchArguments) {
    UserSystemd systemd{m_place.runtimeDirectory, patience};
    if (systemd.isReachable() && writeUnits(launchArguments) && systemd.reload() && systemd.restart(UnitText::timer))
        return true;
    if (systemd.isReachable()) {
        // The time of the other may be over.
        UserSystemd again{m_place.runtimeDirectory, patienceToUndo};
        remove(again);
    } else {
        removeFiles();
    }
    return false;
}

bool SystemdServiceManager::writeUnits(const std::vector<std::string>& launchArguments) {
    std::vector<std::string> check{m_place.checker.string(), "check", m_place.processName, environmentFile().string(),
                                   m_place.program.string()};
    check.insert(check.end(), launchArguments.begin(), launchArguments.end());
    if (!canBePassed(check)) return false;
    const auto service = unitFile(UnitText::service);
    const auto timer = unitFile(UnitText::timer);
    m_files.makeDirectory(service.parent_path());
    // A session that is lacking here is one that the service manager knows.
    replaceFile(m_files, environmentFile(), written(sessionPart(ownEnvironment())));
    return replaceFile(m_files, service, UnitText::serviceUnit(check)) &&
           replaceFile(m_files, timer, UnitText::timerUnit()) && std::ranges::all_of(wishes, [&](const Wish& wish) {
               return link(unitFile(wish.unit), wishFile(service.parent_path(), wish));
           });
}

void SystemdServiceManager::remove(UserSystemd& systemd) {
    // The timer first: no look begins any more.
    systemd.stop(UnitText::timer);
    systemd.stop(UnitText::service);
    removeFiles();
    systemd.reload();
    systemd.resetFailed(UnitText::timer);
    systemd.resetFailed(UnitText::service);
}

void SystemdServiceManager::removeFiles() {
    const auto folder = unitFile(UnitText::timer).parent_path();
    std::error_code ignored;
    for (const auto& wish : wishes) {
        fs::remove(wishFile(folder, wish), ignored);
        // Only an empty folder goes, and no link to one.
        ::rmdir(wishFile(folder, wish).parent_path().c_str());
    }
    m_files.remove(unitFile(UnitText::timer));
    m_files.remove(unitFile(UnitText::service));
    if (::rmdir(folder.c_str()) == 0) ::rmdir(folder.parent_path().c_str());
    if (!m_place.runtimeDirectory.empty()) m_files.remove(environmentFile());
}

fs::path SystemdServiceManager::unitFile(std::string_view unit) const {
    return m_place.configDirectory / "systemd" / "user" / unit;
}

fs::path SystemdServiceManager::environmentFile() const {
    return m_place.runtimeDirectory / "com.kestrava.velmorin.watchdog.environment";
}

} // namespace velmorin
