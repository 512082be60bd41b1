#include "app/platform/linux/applications/ApplicationLauncher.h"

#include "app/platform/linux/applications/ApplicationIdentities.h"
#include "app/platform/linux/applications/ApplicationScope.h"
#include "app/platform/linux/applications/IdentityTable.h"
#include "app/platform/linux/applications/SessionBus.h"
#include "app/platform/linux/applications/StartupContext.h"
#include "app/platform/linux/loop/GLibPointers.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <gio/gdesktopappinfo.h>
#include <unistd.h>

namespace velmorin {

namespace {

/// Every launch has an id of its own, which ends in the time by which it is judged; at zero no window manager lets it
/// come to the front.
std::string startupID(const std::string& id, std::uint32_t userTime) {
    static int count = 0;
    return "velmorin/" + id + "/" + std::to_string(::getpid()) + "-" + std::to_string(++count) + "-" +
           g_get_host_name() + "_TIME" + std::to_string(userTime);
}

std::string withoutSuffix(std::string name) {
    constexpr std::string_view suffix = ".desktop";
    if (name.ends_with(suffix)) name.resize(name.size() - suffix.size());
    return name;
}

/// In the new process: a session of its own, and no signal kept from it.
void detach(gpointer) {
    ::setsid();
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

void launched(GDesktopAppInfo*, GPid processID, gpointer id) {
    ApplicationScope::start(*static_cast<const std::string*>(id), processID);
}

} // namespace

std::optional<std::string> ApplicationLauncher::locate(std::string_view bundleID) const {
    const auto isIt = [&](const DesktopEntry* entry) {
        return entry != nullptr && entry->isLaunchable && ApplicationIdentities::bundleID(*entry) == bundleID;
    };
    for (const auto* contentType : {"x-scheme-handler/http", "inode/directory"}) {
        const auto chosen = m_choice(contentType);
        const auto* entry = chosen ? m_entries.withID(*chosen) : nullptr;
        if (isIt(entry)) return entry->path;
    }
    for (const auto name : IdentityTable::namesOf(bundleID)) {
        const auto* entry = m_entries.withID(name);
        if (isIt(entry)) return entry->path;
    }
    const auto& all = m_entries.all();
    const auto found = std::ranges::find_if(all, [&](const auto& entry) { return isIt(&entry); });
    return found == all.end() ? std::nullopt : std::optional{found->path};
}

void ApplicationLauncher::open(const std::string& desktopFile, Workspace::Opening opening, std::uint32_t userTime,
                               const std::string& display) const {
    const GOwned<GDesktopAppInfo> application{g_desktop_app_info_new_from_filename(desktopFile.c_str())};
    if (!application || g_desktop_app_info_get_is_hidden(application.get()) != FALSE) return;
    sessionBus(); // before GIO asks for it in its own way
    auto id = withoutSuffix(GText{g_path_get_basename(desktopFile.c_str())}.get());
    const bool isActivating = opening == Workspace::Opening::activating;
    const auto context = startupContext(display, startupID(id, isActivating ? userTime : 0));
    constexpr auto flags =
        static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);
    g_desktop_app_info_launch_uris_as_manager(application.get(), nullptr, context.get(), flags, detach, nullptr,
                                              launched, &id, nullptr);
}

std::optional<std::string> ApplicationLauncher::choiceOfUser(const std::string& contentType) {
    const GOwned<GAppInfo> chosen{g_app_info_get_default_for_type(contentType.c_str(), FALSE)};
    const char* id = chosen ? g_app_info_get_id(chosen.get()) : nullptr;
    return id == nullptr ? std::nullopt : std::optional{withoutSuffix(id)};
}

} // namespace velmorin
