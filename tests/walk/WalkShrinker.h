#pragma once

#include "tests/walk/WalkStep.h"

#include <functional>

namespace velmorin {

/// Makes a walk smaller as long as `fails` says that it still shows what it showed: takes out chunks of steps, then
/// single ones and applications, then makes numbers simpler. Of what is left nothing can be taken out alone.
Walk shrunk(Walk walk, const std::function<bool(const Walk&)>& fails);

} // namespace velmorin
