#pragma once

#include "app/engine/AppData.h"
#include "app/engine/OverlayState.h"
#include "app/engine/SessionController.h"
#include "app/platform/simulated/SimulatedWorkspace.h"
#include "core/foundation/JSONOutput.h"
#include "core/session/ScheduleStatus.h"

/// The engine's values as the events show them.
namespace velmorin {

/// Writes the members of an overlay: the state's name and its payload's fields.
void writeOverlay(JSONOutput& output, const OverlayState& state);
/// Writes a position in a plan as an object.
void writeStatus(JSONOutput& output, const ScheduleStatus& status);
/// Writes an application as an object.
void writeApplication(JSONOutput& output, const SimulatedApplicationInfo& application);

/// Writes the members that tell the state of a process.
void writeProgramState(JSONOutput& output, SessionController& controller, AppData& data);
/// Writes the same members where no process runs.
void writeNoProgramState(JSONOutput& output);

} // namespace velmorin
