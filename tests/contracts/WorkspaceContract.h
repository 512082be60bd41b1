#pragma once

#include "app/seams/Workspace.h"
#include "tests/contracts/Bench.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {

class WorkspaceBench : public Bench {
public:
    virtual Workspace& workspace() = 0;
    /// The process identifier of this program itself.
    virtual std::int32_t ownPID() = 0;

    /// Whether there is no application at all without an identifier.
    virtual bool knowsEveryApplication() { return false; }

    /// An application that the bench starts, as its user would.
    struct Newcomer {
        std::optional<std::string> bundleID; ///< absent for one that the system does not know
        std::optional<std::string> name;     ///< as above
        bool inFront = true;
        bool ignoresQuitRequests = false;
        bool hasWindows = true; ///< otherwise it stands nowhere
    };
    /// Starts an application and gives its process identifier. Has arrived once `settle` returns.
    virtual std::int32_t launch(const Newcomer& newcomer) = 0;
    virtual void userActivates(std::int32_t pid) = 0;
    virtual void userQuits(std::int32_t pid) = 0;
    /// Has nothing in front, as when the last window goes.
    virtual void nobodyInFront() = 0;
    /// Who then counts as being in front: nobody, or on some platforms the desktop itself, which has an identifier.
    virtual std::optional<std::string> identifierInFrontOfNothing() { return std::nullopt; }
    /// Makes an application that can be located and opened.
    virtual void install(const std::string& bundleID) = 0;
};

/// What the other applications' seam promises.
class WorkspaceContract : public Contract<WorkspaceBench> {
protected:
    static constexpr const char* editorID = "org.example.editor";
    static constexpr const char* gameID = "org.example.game";

    Workspace& workspace() { return bench().workspace(); }
    std::int32_t launchNewcomer(const WorkspaceBench::Newcomer& newcomer) {
        const auto pid = bench().launch(newcomer);
        bench().settle();
        return pid;
    }
    std::int32_t launch(const std::string& bundleID, bool inFront = true) {
        return launchNewcomer({bundleID, bundleID + " by name", inFront});
    }
    /// The running application with a process identifier; null when there is none.
    Workspace::Application find(std::int32_t pid);
    bool isFront(std::int32_t pid) {
        const auto front = workspace().frontmostApplication();
        return front && front->processIdentifier() == pid;
    }
    /// An observer that writes down of whom it is told, after a word of its own.
    Workspace::Observer noting(const std::string& word);

    std::vector<std::string> notes;
};

} // namespace velmorin
