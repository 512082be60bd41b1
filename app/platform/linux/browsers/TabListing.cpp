#include "app/platform/linux/browsers/TabListing.h"

#include <algorithm>
#include <poll.h>

namespace velmorin {

namespace {

using namespace std::chrono_literals;

/// How often it looks for a host that is missing, and for what may have happened to one that owes an answer.
constexpr std::chrono::milliseconds soon = 20ms;
constexpr std::chrono::milliseconds later = 500ms;

ScriptOutcome failure(const std::string& reason) {
    return {1, "", reason + '\n'};
}

} // namespace

ScriptOutcome TabListing::run() {
    look();
    auto outcome = judge();
    while (!outcome) {
        wait();
        outcome = judge();
    }
    return *outcome;
}

void TabListing::look() {
    lookAtBrowsers();
    lookAtHosts();
}

void TabListing::lookAtBrowsers() {
    const auto running = runningBrowsers(m_browser);
    const auto isRunning = [&](pid_t process) {
        return std::ranges::find(running, process, &BrowserProcess::id) != running.end();
    };
    std::erase_if(m_browsers, [&](const Browser& each) { return !isRunning(each.process.id); });
    std::erase_if(m_conversations, [&](const HostConversation& each) { return !isRunning(each.name().browser); });
    for (const auto& process : running) {
        const auto isSame = [&](const Browser& each) { return each.process.id == process.id; };
        if (std::ranges::none_of(m_browsers, isSame)) m_browsers.push_back({process, Clock::now(), false, {}});
    }
}

void TabListing::lookAtHosts() {
    std::erase_if(m_conversations, [](const HostConversation& each) { return each.state() == State::lost; });
    const auto names = hostSockets(m_folder);
    for (auto& browser : m_browsers) {
        browser.hasLostHost = false;
        for (const auto& name : names) {
            if (name.identity != m_browser.identity || name.browser != browser.process.id) continue;
            auto known = std::ranges::find(m_conversations, name, &HostConversation::name);
            if (known == m_conversations.end())
                known = m_conversations.insert(known, HostConversation{name, HostRequest{}});
            known->start(m_folder);
            if (known->state() == State::lost) browser.hasLostHost = true;
        }
    }
}

void TabListing::wait() {
    std::vector<pollfd> polled;
    bool isSearching = std::ranges::any_of(m_browsers, [this](const Browser& each) { return misses(each); });
    for (const auto& conversation : m_conversations) {
        if (conversation.state() == State::waiting) polled.push_back({conversation.number(), POLLIN, 0});
        if (conversation.state() == State::trying) isSearching = true;
    }
    const auto untilOverdue = std::chrono::ceil<std::chrono::milliseconds>(m_start + patience - Clock::now());
    const auto pause = isSearching ? soon : isOverdue() ? later : std::max(untilOverdue, 1ms);
    const int ready = ::poll(polled.data(), polled.size(), static_cast<int>(pause.count()));
    for (auto& conversation : m_conversations)
        conversation.proceed();
    const auto isLost = [](const HostConversation& each) { return each.state() == State::lost; };
    if (ready <= 0 || std::ranges::any_of(m_conversations, isLost)) look();
}

std::optional<ScriptOutcome> TabListing::judge() {
    const std::string name{m_browser.identity};
    if (m_browsers.empty()) return failure(name + " is not running");
    for (auto& browser : m_browsers) {
        if (refuses(browser)) return failure(name + " runs without an extension that answers (-1743)");
    }
    for (const auto& conversation : m_conversations) {
        if (conversation.state() == State::failed) return failure(name + ": " + conversation.error());
    }
    bool isAnyAnswered = false;
    for (const auto& browser : m_browsers) {
        if (hasAnswered(browser))
            isAnyAnswered = true;
        else if (!(misses(browser) && isYoung(browser)) && !isTakenOut(browser))
            return std::nullopt;
    }
    // Those that are coming up or stand still wait for a later call, unless there is nothing else to tell.
    return isAnyAnswered ? std::optional{ScriptOutcome{0, lines(), ""}} : std::nullopt;
}

bool TabListing::refuses(Browser& browser) {
    const auto now = Clock::now();
    if (!misses(browser)) {
        if (hasAnswered(browser)) browser.missesHostSince.reset();
        return isOverdue() && isKeptFromAnswering(browser);
    }
    if (!browser.missesHostSince) browser.missesHostSince = now;
    return !isYoung(browser) && now - *browser.missesHostSince >= grace;
}

bool TabListing::misses(const Browser& browser) const {
    bool hasHost = false;
    for (const auto& conversation : m_conversations) {
        if (conversation.name().browser != browser.process.id) continue;
        if (conversation.state() == State::lost) return true;
        hasHost = true;
    }
    return !hasHost;
}

bool TabListing::isYoung(const Browser& browser) const {
    const std::chrono::duration<double> sinceSeen = Clock::now() - browser.seen;
    return !browser.hasLostHost && browser.process.age + sinceSeen.count() < youth;
}

bool TabListing::isTakenOut(const Browser& browser) const {
    if (!isOverdue()) return false;
    const auto status = processStatus(browser.process.id);
    return status && status->isStopped;
}

bool TabListing::hasAnswered(const Browser& browser) const {
    return !misses(browser) && std::ranges::all_of(m_conversations, [&](const HostConversation& each) {
        return each.name().browser != browser.process.id || each.state() == State::answered;
    });
}

bool TabListing::isKeptFromAnswering(const Browser& browser) const {
    const auto status = processStatus(browser.process.id);
    if (hasAnswered(browser) || !status || status->isStopped) return false;
    const auto stopped = stoppedDescendants(browser.process.id);
    return std::ranges::any_of(stopped, [this](pid_t process) {
        const auto isHost = [process](const HostConversation& each) { return each.name().host == process; };
        return std::ranges::any_of(m_conversations, isHost) || mayBelongTo(m_browser, process);
    });
}

std::string TabListing::lines() const {
    std::string text;
    for (const auto& conversation : m_conversations) {
        for (const auto& tab : conversation.tabs()) {
            text += WindowID{conversation.name().host, tab.place}.text() + "|||";
            // Once more: whoever it was that answered, it can never say more than one line.
            text += safeInLine(tab.address) + '\n';
        }
    }
    return text;
}

} // namespace velmorin
