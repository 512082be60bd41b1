#include "app/strings/AppWarnings.h"

#include "core/rules/AppPolicy.h"

#include <algorithm>

namespace velmorin {

std::vector<std::string> appWarnings(const Profile& profile, const AppStrings& strings) {
    std::vector<std::string> warnings;
    const auto warnOf = [&](const auto& bundleIDs, auto warning) {
        for (const auto& app : profile.allowedApps) {
            if (std::ranges::find(bundleIDs, app.bundleID) != bundleIDs.end()) warnings.push_back(warning(app.name));
        }
    };
    warnOf(AppPolicy::escapeHatches, strings.escapeHatchWarning);
    warnOf(unsupportedBrowsers, strings.unsupportedBrowserWarning);
    return warnings;
}

} // namespace velmorin
