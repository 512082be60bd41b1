#pragma once

#include "app/platform/linux/applications/DesktopEntries.h"
#include "app/platform/linux/applications/IconTheme.h"
#include "app/seams/InstalledApplications.h"

namespace velmorin {

/// The desktop entries that the menus of this desktop show, under the identifiers that their processes will have, in
/// the order of the data folders. What runs in a terminal is no application of its own, since its window is the
/// terminal's. Of several entries with one identifier the preferred name comes first, and last what only shares the
/// program, as web applications do with their browser. Of a part of the system such entries open settings, and are left
/// out.
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
