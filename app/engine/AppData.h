#pragma once

#include "app/phone/PhoneLink.h"
#include "app/seams/Observable.h"
#include "app/strings/Appearance.h"
#include "core/language/QuoteCategory.h"
#include "core/language/QuoteDeck.h"
#include "core/phone/PhoneThought.h"
#include "core/session/AppSettings.h"
#include "core/session/Profile.h"
#include "core/session/SessionRecord.h"
#include "core/session/Thought.h"
#include "core/store/JSONStore.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace velmorin {

/// Everything the user has, in memory and on disk at once: each assignment to a list writes its whole file. A write
/// that fails leaves the old file, and the next assignment tries again. Nothing is read again after the start. Main
/// thread.
class AppData {
public:
    /// What it needs of the platform. All must outlive it.
    struct Seams {
        Clock& clock;
        Timers& timers;
        Random& random;
        RelayTransport& transport;
        Appearance& appearance;
    };

    static constexpr std::string_view profilesFile = "profiles.json";
    static constexpr std::string_view thoughtsFile = "thoughts.json";
    static constexpr std::string_view historyFile = "history.json";
    static constexpr std::string_view clearedHistoryFile = "history-cleared.json";
    static constexpr std::string_view settingsFile = "settings.json";
    static constexpr std::string_view quoteDeckFile = "quote-deck.json";

    /// Loads every file; one that is missing or damaged gives its default. Writes none.
    AppData(JSONStore store, Seams seams);

    const JSONStore& store() const { return m_store; }
    const Observable<std::vector<Profile>>& profiles() const { return m_profiles; }
    /// The newest first.
    const Observable<std::vector<Thought>>& thoughts() const { return m_thoughts; }
    /// The newest first by the end of the session.
    const Observable<std::vector<SessionRecord>>& history() const { return m_history; }
    /// The history that was cleared last, which can be restored.
    const Observable<std::vector<SessionRecord>>& clearedHistory() const { return m_clearedHistory; }
    const Observable<AppSettings>& settings() const { return m_settings; }
    /// Which sentences are still to come.
    const QuoteDeck& quoteDeck() const { return m_quoteDeck; }
    /// Made on first use; lives as long as this.
    PhoneLink& phoneLink();

    void setProfiles(std::vector<Profile> profiles);
    /// Marks what is new or changed with the present moment and tells the phone of it, and of what is gone.
    void setThoughts(std::vector<Thought> thoughts);
    void setHistory(std::vector<SessionRecord> history);
    /// Also makes the new language and colours those of the screens.
    void setSettings(AppSettings settings);

    /// The thoughts that are not done, in the order of the list.
    std::vector<Thought> openThoughts() const;
    /// Puts a new thought in front. One of white space only is none.
    void addThought(std::string_view text);
    /// The next sentence of a moment, in the present language; a constant of the program.
    std::string_view nextQuote(QuoteCategory category);
    /// Empties the history, so that it can be restored once. An empty one stays as it is.
    void clearHistory();
    /// Brings back what was cleared last beside what came since, sorted by start, newest first. Writes also when
    /// nothing was cleared.
    void restoreClearedHistory();
    /// Adds a short English line to the event log.
    void log(std::string_view message) const;

    std::function<void()> onSettingsChange; ///< after each assignment of the settings

private:
    void setClearedHistory(std::vector<SessionRecord> records);
    void sendThoughtChanges(const std::vector<Thought>& before, std::vector<Thought>& thoughts);
    void applyPhoneThought(const PhoneThought& message);
    void sendAllThoughts();

    JSONStore m_store;
    Seams m_seams;
    Observable<std::vector<Profile>> m_profiles;
    Observable<std::vector<Thought>> m_thoughts;
    bool m_isApplyingPhoneThought = false; ///< a change from the phone must not be echoed back to it
    Observable<std::vector<SessionRecord>> m_history;
    Observable<std::vector<SessionRecord>> m_clearedHistory;
    Observable<AppSettings> m_settings;
    QuoteDeck m_quoteDeck;
    std::unique_ptr<PhoneLink> m_phoneLink;
};

} // namespace velmorin
