#include "tests/support/SampleHistory.h"

#include <array>
#include <random>
#include <string>

namespace velmorin {

namespace {

constexpr std::array<const char*, 7> projects{"زبان",    "کار",    "Thesis", "پایان‌نامه",
                                              "Reading", "Steuer", "ورزش"};
constexpr std::array<const char*, 4> intents{"نوشتن فصل دوم رساله و مرور یادداشت‌ها",
                                             "Answer the three letters of Monday", "", "Kapitel 4/5 lesen"};

UUID sampleID(std::mt19937_64& random) {
    UUID id;
    for (auto& byte : id.bytes)
        byte = static_cast<std::uint8_t>(random());
    return id;
}

SessionRecord sampleRecord(std::mt19937_64& random, Date startedAt) {
    const bool isDeep = random() % 3 == 0;
    const bool isAborted = random() % 5 == 0;
    const double fraction = static_cast<double>(random() % 1'000'000) / 1e6;
    SessionRecord record;
    record.id = sampleID(random);
    record.profileName = projects[random() % projects.size()];
    record.mode = isDeep ? SessionMode::deep : SessionMode::pomodoro;
    record.intent = intents[random() % intents.size()];
    record.startedAt = startedAt + fraction;
    record.endedAt = record.startedAt + 7'800.0 + fraction;
    record.focusedSeconds = isDeep ? 3'900.0 + fraction : static_cast<double>(random() % 5) * 1'500.0;
    if (!isDeep) record.completedRounds = static_cast<std::int64_t>(random() % 5);
    record.attempts = static_cast<std::int64_t>(random() % 20);
    record.returns = static_cast<std::int64_t>(random() % 10);
    record.outcome = isAborted ? SessionOutcome::aborted : SessionOutcome::completed;
    if (isAborted) record.exitReason = "زنگ مدرسه / a call from school";
    return record;
}

} // namespace

std::vector<SessionRecord> sampleHistory(std::size_t count, SampleSpread spread) {
    std::mt19937_64 random{20'260'301};
    const double gap = spread == SampleSpread::years ? 8'640.0 : 28 * 86'400.0 / static_cast<double>(count);
    std::vector<SessionRecord> history;
    history.reserve(count);
    for (std::size_t index = 0; index < count; ++index) {
        history.push_back(sampleRecord(random, sampleNow - gap * static_cast<double>(index + 1)));
    }
    return history;
}

} // namespace velmorin
