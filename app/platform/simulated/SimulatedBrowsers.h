#pragma once

#include "app/platform/simulated/Journal.h"
#include "app/platform/simulated/VirtualTime.h"
#include "app/seams/ChildProcesses.h"
#include "core/rules/BrowserKind.h"
#include "core/rules/BrowserScripts.h"

#include <map>
#include <string>
#include <variant>
#include <vector>

namespace velmorin {

/// Child processes where the only program is the one that runs scripts for browsers, and what those browsers answer.
class SimulatedBrowsers final : public ChildProcesses {
public:
    static constexpr const char* scriptTool = "/usr/bin/osascript";

    /// What a browser says when it is asked.
    struct Denied {};
    struct NoAnswer {};
    using Tabs = std::vector<BrowserTab>;
    using Says = std::variant<Tabs, Denied, NoAnswer>;

    struct Behaviour {
        Says says;
        double delay = 0.1;      ///< how long each script takes, in seconds
        bool isStubborn = false; ///< its tabs stay where they are when they are blanked
    };

    /// Both must outlive this.
    SimulatedBrowsers(VirtualTime& time, const Journal& journal) : m_time{time}, m_journal{journal} {}

    void run(const std::string& executable, const Arguments& arguments, double timeout, Completion completion) override;
    void start(const std::string&, const Arguments&) override {}
    void runAndWait(const std::string&, const Arguments&) override {}

    // The control side.

    /// How a browser behaves from now on. Before it is told, a browser has no windows.
    void behave(BrowserKind kind, Behaviour behaviour) { m_behaviours[kind] = std::move(behaviour); }
    /// The tabs of a browser; none when it would not say.
    Tabs tabs(BrowserKind kind) const;

private:
    void finishLater(double delay, double timeout, ScriptResult result, Completion completion);
    void listTabs(BrowserKind kind, double timeout, Completion completion);
    void blankTab(BrowserKind kind, const std::string& windowID, double timeout, Completion completion);
    void tellScript(BrowserKind kind, double timeout, std::string_view what, const std::string* windowID) const;

    VirtualTime& m_time;
    const Journal& m_journal;
    std::map<BrowserKind, Behaviour> m_behaviours;
};

} // namespace velmorin
