#pragma once

#include "app/platform/linux/applications/ApplicationIdentities.h"
#include "app/platform/linux/applications/ApplicationLauncher.h"
#include "app/platform/linux/applications/DesktopEntries.h"
#include "app/platform/linux/applications/ProcFS.h"
#include "app/platform/linux/x11/X11Connection.h"
#include "app/platform/linux/x11/X11Workspace.h"
#include "tests/support/LoopRunner.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/WindowProgram.h"

#include <cstdint>
#include <filesystem>
#include <list>
#include <memory>
#include <string>
#include <vector>

namespace velmorin {

/// A workspace on the real display, with programs of its own that have windows, and the hands of a user. Needs a
/// display with a window manager: tests/desktop/desktop.py gives one.
class X11World {
public:
    X11World();
    X11World(const X11World&) = delete;
    X11World& operator=(const X11World&) = delete;
    ~X11World();

    LoopRunner& runner() { return m_runner; }
    X11Connection& connection() { return *m_connection; }
    X11Workspace& workspace() { return *m_workspace; }
    static std::int32_t ownPID();

    /// Writes a desktop entry, of a program that is its own.
    void writeEntry(const std::string& id, const std::string& name);
    /// Starts a program with windows (tests/desktop/test_window.cpp) under a name, and returns when the workspace has
    /// seen it.
    WindowProgram& launch(const std::string& name, const std::vector<std::string>& arguments);
    /// The same of a part of the desktop, which is no application, and without waiting for anything.
    WindowProgram& launchPart(const std::string& name, const std::vector<std::string>& arguments);
    WindowProgram& find(std::int32_t pid);
    /// The running application of a process; null when there is none.
    Workspace::Application application(std::int32_t pid) const;

    void userActivates(std::uint32_t window);
    void userIconifies(std::uint32_t window);
    void userIconifiesAll();
    /// The words of a window's property, as the server has them now.
    std::vector<std::uint32_t> words(std::uint32_t window, const std::string& property);

private:
    static inline const ApplicationIdentity self{"com.kestrava.velmorin", "Dravoni", std::nullopt};

    std::filesystem::path entriesFolder() const { return m_directory.path() / "applications"; }
    std::filesystem::path programOf(const std::string& name) const;

    TemporaryDirectory m_directory;
    LoopRunner m_runner;
    DesktopEntries m_entries{{{m_directory.path().string()}, {}, {}}};
    ProcFS m_processes;
    ApplicationIdentities m_identities{m_entries, m_processes};
    ApplicationLauncher m_launcher{m_entries};
    std::unique_ptr<X11Connection> m_connection;
    std::unique_ptr<X11Connection> m_hands; ///< the user's
    std::unique_ptr<X11Workspace> m_workspace;
    std::list<WindowProgram> m_programs;
};

} // namespace velmorin
