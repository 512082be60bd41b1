#pragma once

#include "app/seams/InstalledApplications.h"
#include "tests/contracts/Bench.h"

#include <string>

namespace velmorin {

class InstalledApplicationsBench : public Bench {
public:
    virtual InstalledApplications& applications() = 0;

    /// Installs an application, with a picture of its own or without, and tells where it lies. What is installed later
    /// stands later in the system's order.
    enum class Picture { withOne, without };
    virtual std::string install(const std::string& bundleID, const std::string& name, Picture picture) = 0;
    /// Takes it away again.
    virtual void remove(const std::string& path) = 0;
    /// Puts something in its place that cannot be read.
    virtual void spoil(const std::string& path) = 0;
};

/// What the list of installed applications promises.
class InstalledApplicationsContract : public Contract<InstalledApplicationsBench> {
protected:
    using Picture = InstalledApplicationsBench::Picture;

    InstalledApplications& applications() { return bench().applications(); }
    /// Whether the list comes to be this one.
    bool comesToList(const std::vector<InstalledApp>& expected) {
        return bench().eventually([&] { return applications().list() == expected; });
    }
};

} // namespace velmorin
