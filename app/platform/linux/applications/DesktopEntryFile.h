#pragma once

#include "app/platform/linux/applications/DesktopEntries.h"

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace velmorin {

/// Finds programs as the session would, and remembers where.
class ProgramPaths {
public:
    explicit ProgramPaths(const std::vector<std::string>& folders) : m_folders{folders} {}

    /// The path of a program, links resolved; empty when there is no such.
    const std::string& resolve(const std::string& program);

private:
    const std::vector<std::string>& m_folders;
    std::unordered_map<std::string, std::string> m_resolved;
};

/// What a file ending in ".desktop" holds.
struct DesktopEntryFile {
    DesktopEntry entry;
    bool isHidden = false;         ///< counts as not there, and keeps a later one of its id from being there
    std::size_t argumentCount = 0; ///< of its command, files to open not counted

    /// Absent when it cannot be read or is no application.
    static std::optional<DesktopEntryFile> read(const std::string& path, const std::string& id,
                                                const std::vector<std::string>& desktops, ProgramPaths& programs);
};

} // namespace velmorin
