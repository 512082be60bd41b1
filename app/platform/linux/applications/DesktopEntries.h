#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// One desktop entry of the kind "Application".
struct DesktopEntry {
    std::string id;             ///< without ".desktop"; folders below the data folder become hyphens
    std::string path;           ///< of the file
    std::string name;           ///< for people, in the session's language
    std::string program;        ///< path of what it starts, links resolved; empty when that cannot be told
    std::string startupWMClass; ///< of the windows to come, where the entry tells
    std::string icon;           ///< name in the icon theme, or an absolute path; may be empty
    bool isLaunchable = false;  ///< what it starts is there
    bool isShown = false;       ///< launchable, and meant for the menus of this desktop
};

/// The desktop entries of the session, indexed. Built when first asked, and anew once the main loop has told that
/// entries came, changed or went. What is handed out stays valid until then. Main thread.
class DesktopEntries {
public:
    /// Where entries are looked for, and what decides which of them are shown.
    struct Surroundings {
        std::vector<std::string> dataFolders; ///< those with a folder "applications" in them, the first one wins
        std::vector<std::string> programFolders;
        std::vector<std::string> desktops; ///< names of the running one, the most fitting first

        static Surroundings ofSession();
    };

    explicit DesktopEntries(Surroundings surroundings = Surroundings::ofSession());
    DesktopEntries(const DesktopEntries&) = delete;
    DesktopEntries& operator=(const DesktopEntries&) = delete;
    ~DesktopEntries();

    /// All, in the order in which they were found.
    const std::vector<DesktopEntry>& all() const;

    /// The look-ups give null, or none, when there is no such entry. Those for names ignore the case of letters where
    /// no entry has the very name.
    const DesktopEntry* withID(std::string_view id) const;
    const DesktopEntry* withWindowClass(std::string_view startupWMClass) const;
    /// All that start the program at this path (links resolved), the one that stands for the program itself first.
    const std::vector<const DesktopEntry*>& starting(std::string_view program) const;

private:
    struct Index;
    struct Watch;

    const Index& index() const;

    Surroundings m_surroundings;
    std::unique_ptr<Watch> m_watch;
    mutable std::unique_ptr<Index> m_index;
};

} // namespace velmorin
