#include "app/engine/AppData.h"

#include "core/foundation/Text.h"
#include "core/store/EventLog.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace velmorin {

namespace {

/// What a first-time user finds: one profile for study and one for work.
std::vector<Profile> firstProfiles(Random& random) {
    return {Profile{"زبان", SessionMode::deep, freshID(random)},
            Profile{"کار", SessionMode::pomodoro, freshID(random)}};
}

std::map<UUID, const Thought*> byID(const std::vector<Thought>& thoughts) {
    std::map<UUID, const Thought*> found;
    for (const auto& thought : thoughts)
        found.try_emplace(thought.id, &thought);
    return found;
}

} // namespace

AppData::AppData(JSONStore store, Seams seams) : m_store{std::move(store)}, m_seams{seams} {
    auto profiles = m_store.load<std::vector<Profile>>(profilesFile);
    m_profiles.set(profiles ? std::move(*profiles) : firstProfiles(m_seams.random));
    m_thoughts.set(m_store.load<std::vector<Thought>>(thoughtsFile).value_or(std::vector<Thought>{}));
    m_history.set(m_store.load<std::vector<SessionRecord>>(historyFile).value_or(std::vector<SessionRecord>{}));
    m_clearedHistory.set(
        m_store.load<std::vector<SessionRecord>>(clearedHistoryFile).value_or(std::vector<SessionRecord>{}));
    m_settings.set(m_store.load<AppSettings>(settingsFile).value_or(AppSettings{}));
    m_quoteDeck = m_store.load<QuoteDeck>(quoteDeckFile).value_or(QuoteDeck{});
    EventLog::rotateIfLarge(m_store);
}

PhoneLink& AppData::phoneLink() {
    if (!m_phoneLink) {
        m_phoneLink = std::make_unique<PhoneLink>(
            m_store, [this](std::string_view message) { log(message); },
            PhoneLink::Seams{m_seams.clock, m_seams.timers, m_seams.random, m_seams.transport, m_seams.appearance});
        m_phoneLink->onThought = [this](const PhoneThought& message) { applyPhoneThought(message); };
        m_phoneLink->onPaired = [this] { sendAllThoughts(); };
    }
    return *m_phoneLink;
}

void AppData::setProfiles(std::vector<Profile> profiles) {
    m_profiles.set(std::move(profiles));
    m_store.save(*m_profiles, profilesFile);
}

void AppData::setThoughts(std::vector<Thought> thoughts) {
    if (!m_isApplyingPhoneThought) sendThoughtChanges(*m_thoughts, thoughts);
    m_thoughts.set(std::move(thoughts));
    m_store.save(*m_thoughts, thoughtsFile);
}

void AppData::setHistory(std::vector<SessionRecord> history) {
    m_history.set(std::move(history));
    m_store.save(*m_history, historyFile);
}

void AppData::setClearedHistory(std::vector<SessionRecord> records) {
    m_clearedHistory.set(std::move(records));
    m_store.save(*m_clearedHistory, clearedHistoryFile);
}

void AppData::setSettings(AppSettings settings) {
    m_settings.set(std::move(settings));
    m_store.save(*m_settings, settingsFile);
    m_seams.appearance.apply(*m_settings);
    if (onSettingsChange) onSettingsChange();
}

std::vector<Thought> AppData::openThoughts() const {
    std::vector<Thought> open;
    std::ranges::copy_if(*m_thoughts, std::back_inserter(open), [](const Thought& thought) { return !thought.done; });
    return open;
}

void AppData::addThought(std::string_view text) {
    const auto words = trimmed(text);
    if (words.empty()) return;
    auto thoughts = *m_thoughts;
    thoughts.insert(thoughts.begin(), Thought{std::string{words}, m_seams.clock.now(), freshID(m_seams.random)});
    setThoughts(std::move(thoughts));
    log("thought parked");
}

std::string_view AppData::nextQuote(QuoteCategory category) {
    const auto draw = [this](std::uint64_t bound) {
        return randomBelow(bound, [this](std::size_t count) { return m_seams.random.bytes(count); });
    };
    const auto quote = m_quoteDeck.next(category, *m_seams.appearance.language(), draw);
    m_store.save(m_quoteDeck, quoteDeckFile);
    return quote;
}

void AppData::clearHistory() {
    // A second clearing must not wipe what the first one can bring back.
    if (m_history->empty()) return;
    setClearedHistory(*m_history);
    setHistory({});
    log("stats cleared");
}

void AppData::restoreClearedHistory() {
    auto history = *m_history;
    std::set<UUID> known;
    std::ranges::transform(history, std::inserter(known, known.end()), &SessionRecord::id);
    std::ranges::copy_if(*m_clearedHistory, std::back_inserter(history),
                         [&known](const SessionRecord& record) { return !known.contains(record.id); });
    std::ranges::stable_sort(history, std::ranges::greater{}, &SessionRecord::startedAt);
    setHistory(std::move(history));
    setClearedHistory({});
    log("stats restored");
}

void AppData::log(std::string_view message) const {
    EventLog::log(m_store, m_seams.clock.now(), message);
}

void AppData::sendThoughtChanges(const std::vector<Thought>& before, std::vector<Thought>& thoughts) {
    const Date now = m_seams.clock.now();
    const auto known = byID(before);
    for (auto& thought : thoughts) {
        const auto found = known.find(thought.id);
        if (found != known.end() && *found->second == thought) continue;
        thought.updatedAt = now;
        phoneLink().sendThought(message(thought, now, false));
    }
    const auto kept = byID(thoughts);
    for (const auto& thought : before) {
        if (!kept.contains(thought.id)) phoneLink().sendThought(message(thought, now, true));
    }
}

void AppData::applyPhoneThought(const PhoneThought& message) {
    auto merged = merging(message, *m_thoughts);
    if (!merged) return;
    m_isApplyingPhoneThought = true;
    setThoughts(std::move(*merged));
    m_isApplyingPhoneThought = false;
    log("thought from phone");
}

void AppData::sendAllThoughts() {
    for (const auto& thought : *m_thoughts)
        phoneLink().sendThought(message(thought, thought.changedAt(), false));
}

} // namespace velmorin
