#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// One desktop entry of the kind "Application".
struct DesktopEntry {
    std::string id;             ///< without ".desktop"; folders below the data folder become parts with hyphens
    std::string path;           ///< of the file
    std::string name;           ///< for people, in the session's language
    std::string program;        ///< path of what it runs, links resolved; empty when that cannot be told
    std::string startupWMClass; ///< of the windows to come, where the entry tells
    std::string icon;           ///< name in the icon theme, or an absolute path; may be empty
    bool isInTerminal = false;  ///< its window is the terminal's
    bool isLaunchable = false;  ///< what it starts is there
    bool isShown = false;       ///< launchable, and meant for the menus of this desktop
};

/// The desktop entries of the session, indexed. Read when first asked for, and anew once the main loop has told that
/// entries came, changed or went. What is handed out stays valid until then. Main thread.
class DesktopEntries {
public:
    using Found = std::vector<const DesktopEntry*>;

    /// Where entries are looked for, and what decides which of them are shown.
    struct Surroundings {
        std::vector<std::string> dataFolders; ///< with entries in "applications"; the first that has an id wins
        std::vector<std::string> programFolders;
        std::vector<std::string> desktops; ///< names of the running one, the most fitting first

        static Surroundings ofSession();
    };

    explicit DesktopEntries(Surroundings surroundings = Surroundings::ofSession());
    DesktopEntries(const DesktopEntries&) = delete;
    DesktopEntries& operator=(const DesktopEntries&) = delete;
    ~DesktopEntries();

    const Surroundings& surroundings() const { return m_surroundings; }

    /// All, in the order in which they were found.
    const std::vector<DesktopEntry>& all() const;

    /// The entry with this id, or with this StartupWMClass; where none has the very name, letters may differ in case.
    /// Null when there is none.
    const DesktopEntry* withID(std::string_view id) const;
    const DesktopEntry* withWindowClass(std::string_view startupWMClass) const;
    /// Those that run the program at this path (links resolved), the one that stands for the program itself first.
    const Found& running(std::string_view program) const;

private:
    struct Index;
    class Watch;

    const Index& index() const;

    Surroundings m_surroundings;
    std::unique_ptr<Watch> m_watch;
    mutable std::unique_ptr<Index> m_index;
};

} // namespace velmorin
