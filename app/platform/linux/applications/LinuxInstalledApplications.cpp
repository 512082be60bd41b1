#include "app/platform/linux/applications/LinuxInstalledApplications.h"

#include "app/platform/linux/applications/ApplicationIdentities.h"
#include "app/platform/linux/applications/IdentityTable.h"
#include "core/foundation/Text.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>
#include <utility>

namespace velmorin {

namespace {

constexpr std::size_t byProgramOnly = std::numeric_limits<std::size_t>::max();

/// How far down the names of its application an entry stands; last are those that only run its program.
std::size_t rank(const DesktopEntry& entry, const std::string& bundleID) {
    const auto names = IdentityTable::namesOf(bundleID);
    const auto isName = [id = lowercased(entry.id)](auto name) { return lowercased(name) == id; };
    const auto found = std::ranges::find_if(names, isName);
    if (found == names.end() && IdentityTable::bundleID(entry.id) != bundleID) return byProgramOnly;
    return static_cast<std::size_t>(found - names.begin());
}

} // namespace

std::vector<InstalledApp> LinuxInstalledApplications::list() const {
    std::vector<std::pair<std::size_t, InstalledApp>> ranked;
    for (const auto& entry : m_entries.all()) {
        if (!entry.isShown || entry.isInTerminal) continue;
        InstalledApp app{entry.name, ApplicationIdentities::bundleID(entry), entry.path};
        const auto place = rank(entry, app.bundleID);
        if (place < byProgramOnly || !IdentityTable::isReserved(app.bundleID))
            ranked.emplace_back(place, std::move(app));
    }
    std::ranges::stable_sort(ranked, {}, [](const auto& entry) { return entry.first; });
    std::vector<InstalledApp> apps;
    std::ranges::transform(ranked, std::back_inserter(apps), [](auto& entry) { return std::move(entry.second); });
    return apps;
}

std::optional<std::string> LinuxInstalledApplications::iconFile(const std::string& path, int pixelSize) const {
    const auto& all = m_entries.all();
    const auto found = std::ranges::find(all, path, &DesktopEntry::path);
    return found == all.end() ? std::nullopt : m_icons.file(found->icon, pixelSize);
}

} // namespace velmorin
