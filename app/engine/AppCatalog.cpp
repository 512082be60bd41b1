#include "app/engine/AppCatalog.h"

#include "core/language/NameOrder.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <utility>

namespace velmorin::AppCatalog {

namespace {

/// An application that runs, absent when it has no face or no identifier.
std::optional<InstalledApp> running(const RunningApplication& application, const Workspace& workspace) {
    const auto& bundleID = application.bundleIdentifier();
    if (!bundleID || application.activationPolicy() != ActivationPolicy::regular) return std::nullopt;
    return InstalledApp{application.localizedName().value_or(*bundleID), *bundleID,
                        workspace.locate(*bundleID).value_or(std::string{})};
}

std::vector<InstalledApp> sorted(std::vector<InstalledApp> apps, AppLanguage language) {
    std::vector<std::pair<std::string, InstalledApp>> keyed;
    keyed.reserve(apps.size());
    for (auto& app : apps)
        keyed.emplace_back(sortKey(language, app.name), std::move(app));
    std::ranges::stable_sort(
        keyed, {}, [](const auto& entry) -> const auto& { return entry.first; });
    std::ranges::transform(keyed, apps.begin(), [](auto& entry) { return std::move(entry.second); });
    return apps;
}

} // namespace

std::vector<InstalledApp> scan(const InstalledApplications& installed, const Workspace& workspace,
                               const std::optional<std::string>& selfBundleID, AppLanguage language) {
    std::set<std::string> known;
    if (selfBundleID) known.insert(*selfBundleID);
    std::vector<InstalledApp> apps;
    const auto add = [&](InstalledApp app) {
        if (known.insert(app.bundleID).second) apps.push_back(std::move(app));
    };
    std::ranges::for_each(installed.list(), add);
    for (const auto& application : workspace.runningApplications()) {
        if (auto app = running(*application, workspace)) add(std::move(*app));
    }
    return sorted(std::move(apps), language);
}

std::vector<InstalledApp> filtered(const std::vector<InstalledApp>& apps, std::string_view query) {
    std::vector<InstalledApp> result;
    std::ranges::copy_if(apps, std::back_inserter(result),
                         [query](const auto& app) { return containsIgnoringCase(app.name, query); });
    return result;
}

} // namespace velmorin::AppCatalog
