#pragma once

#include "app/platform/linux/applications/Processes.h"

#include <filesystem>

namespace velmorin {

/// The processes of this machine, as /proc shows them.
class ProcFS final : public Processes {
public:
    explicit ProcFS(std::filesystem::path root = "/proc") : m_root{std::move(root)} {}

    std::optional<ProcessFacts> facts(std::int32_t processID) const override;

private:
    std::filesystem::path m_root;
};

} // namespace velmorin
