#include "app/strings/AppWarnings.h"

#include "core/rules/AppPolicy.h"

#include <algorithm>

namespace velmorin {

std::vector<std::string> appWarnings(const Profile& profile, const AppStrings& strings,
                                     const PlatformCautions& platform) {
    std::vector<std::string> warnings;
    const auto warnOf = [&](const auto& bundleIDs, const auto& platformKnows, auto warning) {
        for (const auto& app : profile.allowedApps) {
            const bool isListed = std::ranges::find(bundleIDs, app.bundleID) != bundleIDs.end();
            if (isListed || (platformKnows && platformKnows(app.bundleID))) warnings.push_back(warning(app.name));
        }
    };
    warnOf(AppPolicy::escapeHatches, platform.isEscapeHatch, strings.escapeHatchWarning);
    warnOf(unsupportedBrowsers, platform.isUnsupportedBrowser, strings.unsupportedBrowserWarning);
    return warnings;
}

} // namespace velmorin
