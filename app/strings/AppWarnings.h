#pragma once

#include "app/strings/AppStrings.h"
#include "core/session/Profile.h"

#include <string>
#include <vector>

namespace velmorin {

/// What to say about the applications of a profile: first those through which the lock could be got round, then the
/// browsers whose sites are not controlled, each in the profile's order. Pure; any thread.
std::vector<std::string> appWarnings(const Profile& profile, const AppStrings& strings);

} // namespace velmorin
