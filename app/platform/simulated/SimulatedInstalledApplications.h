#pragma once

#include "app/seams/InstalledApplications.h"

#include <map>

namespace velmorin {

/// Applications that are installed because somebody says so.
class SimulatedInstalledApplications final : public InstalledApplications {
public:
    std::vector<InstalledApp> list() const override { return apps; }
    std::optional<std::string> iconFile(const std::string& path, int) const override {
        const auto found = icons.find(path);
        return found == icons.end() ? std::nullopt : std::optional{found->second};
    }

    // The control side.

    std::vector<InstalledApp> apps;
    std::map<std::string, std::string> icons; ///< files, by the application's path
};

} // namespace velmorin
