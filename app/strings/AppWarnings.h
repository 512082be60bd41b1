#pragma once

#include "app/strings/AppStrings.h"
#include "core/session/Profile.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// What a platform knows of applications besides the core's lists. A function that is missing knows of none.
struct PlatformCautions {
    std::function<bool(std::string_view bundleID)> isEscapeHatch;
    std::function<bool(std::string_view bundleID)> isUnsupportedBrowser;
};

/// What to say about the applications of a profile: first those through which the lock could be got round, then the
/// browsers whose sites are not controlled, each in the profile's order. Pure; any thread.
std::vector<std::string> appWarnings(const Profile& profile, const AppStrings& strings,
                                     const PlatformCautions& platform = {});

} // namespace velmorin
