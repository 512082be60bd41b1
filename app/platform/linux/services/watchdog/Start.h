#pragma once

#include "app/platform/linux/services/watchdog/SessionEnvironment.h"

#include <string>
#include <vector>

namespace velmorin {

/// The words of a command: an executable and its arguments.
using Words = std::vector<std::string>;

/// The command that becomes a program in a scope of its own of the user's service manager: apart from whoever starts
/// it, together with what it opens, and gone without a trace when all that has ended. `tag` tells this start from all
/// others.
Words inScope(const Words& command, const std::string& tag);

/// Changes the environment of this process; what a service manager has told it of its own unit goes as well.
void apply(const EnvironmentChanges& changes);

/// Starts a command that belongs to nobody: in a session of its own, with nobody waiting for it. A name without a
/// slash is looked for in $PATH. Returns at once; a failure is not told.
void startDetached(const Words& command);

} // namespace velmorin
