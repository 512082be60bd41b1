#pragma once

#include <gio/gio.h>

namespace velmorin {

/// The connection to the session bus that GIO shares throughout the process; null where there is no such bus. Unlike
/// GIO by itself, it starts no bus, and the process outlives the bus. Main thread.
GDBusConnection* sessionBus();

} // namespace velmorin
