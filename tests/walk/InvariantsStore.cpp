// What must hold of the files.

#include "core/foundation/JSONCoding.h"
#include "tests/walk/Invariants.h"

#include <algorithm>

namespace velmorin {

namespace {

/// The name that an event of the disk is about.
std::string fileOf(const SimulatedEvent& event) {
    constexpr std::size_t start = std::string_view{"\"file\":\""}.size();
    return event.details.substr(start, event.details.find('"', start) - start);
}

/// Whether each of these records is among those.
bool areAmong(const std::vector<SessionRecord>& these, const std::vector<SessionRecord>& those) {
    return std::ranges::all_of(these, [&those](const SessionRecord& record) {
        return std::ranges::find(those, record.id, &SessionRecord::id) != those.end();
    });
}

} // namespace

const std::string* Invariants::content(std::string_view file) const {
    const auto found = m_files.contents.find(m_directory / file);
    return found == m_files.contents.end() ? nullptr : &found->second;
}

void Invariants::saved(const SimulatedEvent& event) {
    const std::string file = fileOf(event);
    m_stored[file] = {false, true};
    tookTo(file);
}

void Invariants::saveFailed(const SimulatedEvent& event) {
    const std::string file = fileOf(event);
    m_stored[file].isStale = true;
    tookTo(file);
}

void Invariants::removed(const SimulatedEvent& event) {
    const std::string file = fileOf(event);
    m_stored[file] = {false, true};
    if (file == SessionController::sessionFile) {
        require(program() && (m_isEnding || !controller().isActive()), Invariant::sessionFileWhileItRuns,
                "removed while the session runs");
    }
}

/// Something is written, or would be if the disk had room: what it is of, and why now.
void Invariants::tookTo(const std::string& file) {
    constexpr auto rule = Invariant::savesOnlyChanges;
    if (!program()) return;
    const AppData& data = program()->data();
    if (file == SessionController::sessionFile) {
        require(m_session && m_session != m_lastSaved, rule, "the session, which has not changed");
        m_memory.session = m_lastSaved = m_session;
    } else if (file == AppData::historyFile) {
        tookHistory();
    } else if (file == AppData::clearedHistoryFile) {
        tookClearedHistory();
    } else if (file == AppData::settingsFile) {
        require(isStep("settings"), rule, "the settings, which nobody has changed");
        m_memory.settings = *data.settings();
    } else if (file == AppData::thoughtsFile) {
        // A message from the phone counts also when it says what is known already.
        const bool mayChange = isStep("addThought") || isStep("setThoughts") || program()->data().phoneLink().pairing();
        require(mayChange, rule, "the thoughts, which nobody has changed");
        m_memory.thoughts = *data.thoughts();
    } else {
        require(file == PhoneLink::fileName, rule, "a file that no step changes");
    }
}

void Invariants::tookHistory() {
    const auto& history = *program()->data().history();
    const auto& cleared = *program()->data().clearedHistory();
    const bool isCleared = isStep("clearHistory");
    require(m_isEnding || isCleared || isStep("restoreHistory"), Invariant::savesOnlyChanges, "the history");
    require(areAmong(m_memory.history, isCleared ? cleared : history), Invariant::historyLosesNothing,
            "a record is lost");
    if (m_isEnding) {
        require(history.size() == m_memory.history.size() + 1 &&
                    areAmong({history.begin() + 1, history.end()}, m_memory.history),
                Invariant::eachEndIsOneRecord, "an end adds one record");
    }
    m_memory.history = history;
}

void Invariants::tookClearedHistory() {
    const auto& history = *program()->data().history();
    const auto& cleared = *program()->data().clearedHistory();
    const bool isCleared = isStep("clearHistory");
    require(isCleared || isStep("restoreHistory"), Invariant::savesOnlyChanges, "the cleared history");
    require(isCleared ? cleared == history && !history.empty() : areAmong(m_memory.cleared, history),
            Invariant::historyLosesNothing, "a cleared record is lost");
    m_memory.cleared = cleared;
}

void Invariants::checkStore() {
    const AppData& data = program()->data();
    checkFile(AppData::historyFile, *data.history(), m_memory.history, m_readHistory);
    checkFile(AppData::clearedHistoryFile, *data.clearedHistory(), m_memory.cleared, m_readCleared);
    checkFile(AppData::thoughtsFile, *data.thoughts(), m_memory.thoughts, m_readThoughts);
    checkFile(AppData::settingsFile, *data.settings(), m_memory.settings, m_readSettings);
    checkSessionFile();
}

template <class Value>
void Invariants::checkFile(std::string_view file, const Value& held, const Value& remembered,
                           std::optional<Value>& read) {
    require(held == remembered, Invariant::filesHoldWhatMemoryHolds, "a change without a save");
    Stored& stored = m_stored[std::string{file}];
    if (stored.hasChanged) {
        const std::string* text = content(file);
        read = text ? decodeJSON<Value>(*text) : std::nullopt;
        stored.hasChanged = false;
    }
    require(stored.isStale || held == read.value_or(Value{}), Invariant::filesHoldWhatMemoryHolds,
            "a file holds something else");
}

void Invariants::checkSessionFile() {
    const auto& session = *controller().session();
    Stored& stored = m_stored[std::string{SessionController::sessionFile}];
    const std::string* text = content(SessionController::sessionFile);
    if (stored.hasChanged) {
        m_readSession = text ? decodeJSON<ActiveSession>(*text) : std::nullopt;
        stored.hasChanged = false;
    }
    constexpr auto rule = Invariant::sessionFileWhileItRuns;
    require(session || !text, rule, "a file without a session");
    require(!session || stored.isStale || session == m_readSession, rule, "the file holds another session");
}

} // namespace velmorin
