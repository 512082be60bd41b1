#pragma once

#include "app/platform/simulated/SimulatedBrowsers.h"
#include "app/platform/simulated/SimulatedWorkspace.h"
#include "core/foundation/JSONArguments.h"
#include "core/session/AppSettings.h"
#include "core/session/Profile.h"

#include <cstdint>
#include <string>

/// The values of a scenario. Each throws MalformedInput when a member is missing or not what it should be.
namespace velmorin {

/// A number of seconds that can pass: finite and not negative.
double readDuration(const JSONArguments& step, const std::string& name);
std::int32_t readPID(const JSONArguments& step, const std::string& name);
/// An application; its process identifier may be missing and is then `unusedPID`.
SimulatedApplicationInfo readApplication(const JSONArguments& step, std::int32_t unusedPID);
SimulatedBrowsers::Behaviour readBehaviour(const JSONArguments& step);
/// A profile of which anything may be missing; that is then as in a new one.
Profile readProfile(const std::string& json);
/// Settings of which anything may be missing; that is then as in `base`.
AppSettings readSettings(const AppSettings& base, const std::string& json);

} // namespace velmorin
