#include "app/platform/linux/applications/LinuxInstalledApplications.h"

#include "app/platform/linux/applications/ApplicationIdentities.h"
#include "app/platform/linux/applications/IdentityTable.h"
#include "core/foundation/Text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace velmorin {

namespace {

/// Whether the identifier comes from what the entry is called, and not only from the program that it runs.
bool isNamedSo(const DesktopEntry& entry, const std::string& bundleID) {
    const auto names = IdentityTable::namesOf(bundleID);
    return IdentityTable::bundleID(entry.id) == bundleID ||
           std::ranges::find(names, lowercased(entry.id)) != names.end();
}

} // namespace

std::vector<InstalledApp> LinuxInstalledApplications::list() const {
    std::vector<InstalledApp> apps;
    std::vector<InstalledApp> further;
    for (const auto& entry : m_entries.all()) {
        if (!entry.isShown || entry.isInTerminal) continue;
        InstalledApp app{entry.name, ApplicationIdentities::bundleID(entry), entry.path};
        if (isNamedSo(entry, app.bundleID))
            apps.push_back(std::move(app));
        else if (!IdentityTable::isReserved(app.bundleID))
            further.push_back(std::move(app));
    }
    std::ranges::move(further, std::back_inserter(apps));
    return apps;
}

std::optional<std::string> LinuxInstalledApplications::iconFile(const std::string& path, int pixelSize) const {
    const auto& all = m_entries.all();
    const auto found = std::ranges::find(all, path, &DesktopEntry::path);
    return found == all.end() ? std::nullopt : m_icons.file(found->icon, pixelSize);
}

} // namespace velmorin
