#pragma once

#include "app/platform/linux/applications/Processes.h"

#include <map>

namespace velmorin {

/// Processes that are as a test says.
class ScriptedProcesses final : public Processes {
public:
    std::optional<ProcessFacts> facts(std::int32_t processID) const override {
        const auto found = processes.find(processID);
        return found == processes.end() ? std::nullopt : std::optional{found->second};
    }

    std::map<std::int32_t, ProcessFacts> processes;
};

} // namespace velmorin
