#pragma once

#include "core/session/Profile.h"

#include <string>

namespace velmorin {

/// Reads a profile that somebody wrote by hand. What it leaves out has its default, its name by default `name`, and a
/// site may be given as an address. Throws MalformedInput with what is wrong, in words: a member that is not known is
/// one, since a lock that allows less than was meant is a bad place to find out.
Profile readProfile(const std::string& json, const std::string& name);

} // namespace velmorin
