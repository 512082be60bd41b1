#pragma once

#include "app/engine/AppData.h"
#include "app/engine/SessionController.h"
#include "app/platform/simulated/SimulatedWorkspace.h"
#include "core/foundation/JSONOutput.h"

/// The scene's values as the events show them.
namespace velmorin {

/// Writes an application as an object.
void writeApplication(JSONOutput& output, const SimulatedApplicationInfo& application);

/// Writes the members that tell the state of a process.
void writeProgramState(JSONOutput& output, SessionController& controller, AppData& data);
/// Writes the same members where no process runs.
void writeNoProgramState(JSONOutput& output);

} // namespace velmorin
