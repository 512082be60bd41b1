#pragma once

#include "app/composition/LinuxPlaces.h"

/// What a program that holds a session does to its own process. Main thread.
namespace velmorin::OwnProcess {

/// Gives it the name of its executable, by which the watchdog knows it, also where it was called through a link of
/// another name.
void takeName(const LinuxPlaces& places);

/// Takes out of the environment what speaks of its own start or service, so that nothing that it starts passes for it.
/// Before there is another thread.
void forgetStart();

/// Lets the session go on where a terminal would stop the process, by a key or because it works in the background, and
/// where nobody reads any more what it prints. What it starts is not affected.
void ignoreStops();

} // namespace velmorin::OwnProcess
