#pragma once

#include "core/store/Files.h"

#include <filesystem>
#include <string_view>

namespace velmorin {

/// Replaces a file, or makes it, so that at every moment it is the old one or the new one, also when the process or
/// the power goes. False when the bytes could not be brought all the way to the disk.
bool replaceFile(Files& files, const std::filesystem::path& target, std::string_view bytes);

} // namespace velmorin
