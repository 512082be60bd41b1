#pragma once

#include <string>

namespace velmorin {

/// What becomes of a script: its exit status, 0 for success, and what it prints.
struct ScriptOutcome {
    int status = 0;
    std::string output;
    std::string error;

    bool operator==(const ScriptOutcome&) const = default;
};

} // namespace velmorin
