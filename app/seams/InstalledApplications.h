#pragma once

#include <optional>
#include <string>
#include <vector>

namespace velmorin {

/// An application that can be chosen for a profile.
struct InstalledApp {
    std::string name; ///< for people, in their language
    std::string bundleID;
    std::string path; ///< where it lies, as `Workspace::locate` tells; empty for one that only runs

    bool operator==(const InstalledApp&) const = default;
};

/// The applications that the user can start. Main thread.
class InstalledApplications {
public:
    virtual ~InstalledApplications() = default;

    /// All of them in the system's order, each with an identifier and a name. An identifier may come more than once:
    /// the first is the one that counts. What cannot be read is left out. May read the disk.
    virtual std::vector<InstalledApp> list() const = 0;

    /// The file with the picture of the application that lies there, a PNG or an SVG, chosen for being drawn with so
    /// many pixels a side; absent when there is none.
    virtual std::optional<std::string> iconFile(const std::string& path, int pixelSize) const = 0;
};

} // namespace velmorin
