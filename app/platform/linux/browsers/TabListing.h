#pragma once

#include "app/platform/linux/browsers/BrowserProcesses.h"
#include "app/platform/linux/browsers/HostConversation.h"
#include "app/platform/linux/browsers/ScriptOutcome.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {

/// Asks all running processes of a browser for the tabs that their windows show, and judges what it means where one
/// does not answer: a browser that runs but cannot be watched counts as one that refuses, and says so with -1743. One
/// thread.
class TabListing {
public:
    /// How old a process gets to be before it must have a host, in seconds: a browser that is coming up.
    static constexpr double youth = 10.0;
    /// How long a browser may be without a host that it has had, or should have.
    static constexpr std::chrono::milliseconds grace{500};
    /// How long an answer takes at most where nothing is wrong. After it, whoever owes it is looked at.
    static constexpr std::chrono::seconds patience{2};

    TabListing(const KnownBrowser& browser, const RuntimeFolder& folder) : m_browser{browser}, m_folder{folder} {}

    /// Returns when all have answered or one refuses. Waits without limit for a browser that hangs.
    ScriptOutcome run();

private:
    using Clock = std::chrono::steady_clock;
    using Moment = Clock::time_point;
    using State = HostConversation::State;

    struct Browser {
        BrowserProcess process;
        Moment seen;
        bool hasLostHost = false; ///< there is the socket of one that was killed
        std::optional<Moment> missesHostSince;
    };

    void look();
    void lookAtBrowsers();
    void lookAtHosts();
    void wait();
    std::optional<ScriptOutcome> judge();
    bool refuses(Browser& browser);
    bool misses(const Browser& browser) const;
    bool isYoung(const Browser& browser) const;
    bool isTakenOut(const Browser& browser) const;
    bool hasAnswered(const Browser& browser) const;
    bool isKeptFromAnswering(const Browser& browser) const;
    bool isOverdue() const { return Clock::now() - m_start >= patience; }
    std::string lines() const;

    const KnownBrowser& m_browser;
    const RuntimeFolder& m_folder;
    Moment m_start = Clock::now();
    std::vector<Browser> m_browsers;
    std::vector<HostConversation> m_conversations;
};

} // namespace velmorin
