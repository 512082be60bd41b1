#pragma once

#include <string_view>
#include <sys/types.h>

namespace velmorin {

/// The longest name that the system keeps of a process, in bytes; of a longer one it keeps the beginning.
inline constexpr std::size_t longestProcessName = 15;

/// Whether a process of this user lives under exactly this name, of which `longestProcessName` bytes count. One that
/// has ended and waits for its parent does not live. False also where the list of processes cannot be read.
bool isProcessAlive(std::string_view name, uid_t user);

} // namespace velmorin
