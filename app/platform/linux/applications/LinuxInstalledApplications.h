#pragma once

#include "app/platform/linux/applications/DesktopEntries.h"
#include "app/platform/linux/applications/IconTheme.h"
#include "app/seams/InstalledApplications.h"

namespace velmorin {

/// The desktop entries that the menus of this desktop show, in the order of the data folders, under the identifiers
/// that their processes will have. What runs in a terminal is no application of its own, since its window is the
/// terminal's. Entries that share a program with a browser but go by another name, as web applications do, come last;
/// and further entries of a part of the system open its settings, and are left out.
class LinuxInstalledApplications final : public InstalledApplications {
public:
    /// Both must outlive this.
    LinuxInstalledApplications(const DesktopEntries& entries, const IconTheme& icons)
        : m_entries{entries}, m_icons{icons} {}

    std::vector<InstalledApp> list() const override;
    std::optional<std::string> iconFile(const std::string& path, int pixelSize) const override;

private:
    const DesktopEntries& m_entries;
    const IconTheme& m_icons;
};

} // namespace velmorin
