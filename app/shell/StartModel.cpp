#include "app/shell/StartModel.h"

#include "app/shell/Text.h"
#include "core/language/Formatting.h"
#include "core/session/Schedule.h"

#include <array>
#include <cstddef>

namespace velmorin {

namespace {

/// Where a profile keeps one of its timings.
template <auto Config, auto Member>
std::int64_t& timing(Profile& profile) {
    return profile.*Config.*Member;
}

constexpr std::array pomodoroSettings{
    TimeSetting{&AppStrings::focusLength, &timing<&Profile::pomodoro, &PomodoroConfig::workMinutes>, 5, 120, 5},
    TimeSetting{&AppStrings::shortBreak, &timing<&Profile::pomodoro, &PomodoroConfig::shortBreakMinutes>, 1, 30, 1},
    TimeSetting{&AppStrings::longBreak, &timing<&Profile::pomodoro, &PomodoroConfig::longBreakMinutes>, 5, 60, 5},
    TimeSetting{&AppStrings::cycleCount, &timing<&Profile::pomodoro, &PomodoroConfig::totalCycles>, 1, 12, 1, true},
};

constexpr std::array deepSettings{
    TimeSetting{&AppStrings::totalLength, &timing<&Profile::deep, &DeepConfig::totalMinutes>, 15, 480, 15},
    TimeSetting{&AppStrings::breakAfterEvery, &timing<&Profile::deep, &DeepConfig::breakEveryMinutes>, 15, 120, 5},
    TimeSetting{&AppStrings::breakLength, &timing<&Profile::deep, &DeepConfig::breakMinutes>, 1, 20, 1},
};

constexpr auto pomodoroCount = static_cast<qsizetype>(pomodoroSettings.size());

} // namespace

StartModel::StartModel(ShellContext& context, QObject* parent)
    : QObject{parent}, m_context{context}, m_choice{context.data} {
    for (const auto& setting : pomodoroSettings)
        m_rows.push_back(new TimeRow{setting, context, m_choice, this});
    for (const auto& setting : deepSettings)
        m_rows.push_back(new TimeRow{setting, context, m_choice, this});
    refresh();
    m_watches.push_back(context.data.profiles().watch([this] { refresh(); }));
    m_watches.push_back(context.appearance.language().watch([this] {
        Q_EMIT languageChanged();
        refresh();
    }));
}

void StartModel::refresh() {
    if (const auto names = m_choice.names(); names != m_names) {
        m_names = names;
        Q_EMIT profileNamesChanged();
    }
    if (mode() != m_mode) {
        m_mode = mode();
        m_shownRows = isDeep() ? m_rows.mid(pomodoroCount) : m_rows.first(pomodoroCount);
        Q_EMIT modeChanged();
    }
    for (auto* const row : m_shownRows)
        Q_EMIT row->changed();
    Q_EMIT changed();
}

void StartModel::select(int index) {
    m_choice.choose(index);
    refresh();
}

void StartModel::setIntent(const QString& intent) {
    if (intent == m_intent) return;
    m_intent = intent;
    Q_EMIT intentChanged();
}

QString StartModel::allowedSummary() const {
    const auto* const profile = m_choice.profile();
    return profile == nullptr ? QString{}
                              : toQString(velmorin::allowedSummary(*profile, m_context.appearance.strings()));
}

QStringList StartModel::modeNames() const {
    const auto& strings = m_context.appearance.strings();
    return {toQString(strings.modePomodoro), toQString(strings.modeDeep)};
}

bool StartModel::isDeep() const {
    const auto* const profile = m_choice.profile();
    return profile != nullptr && profile->mode == SessionMode::deep;
}

int StartModel::mode() const {
    return static_cast<int>(isDeep() ? SessionMode::deep : SessionMode::pomodoro);
}

void StartModel::setMode(int mode) {
    const auto chosen = mode == static_cast<int>(SessionMode::deep) ? SessionMode::deep : SessionMode::pomodoro;
    m_choice.change([chosen](Profile& profile) { profile.mode = chosen; });
}

QString StartModel::modeDetail() const {
    const auto& strings = m_context.appearance.strings();
    return toQString(isDeep() ? strings.modeDeepDetail : strings.modePomodoroDetail);
}

std::vector<Segment> StartModel::plan() const {
    const auto* const profile = m_choice.profile();
    return profile == nullptr ? std::vector<Segment>{} : profile->segments();
}

QString StartModel::totalText() const {
    return toQString(compactRemaining(*m_context.appearance.language(), Schedule::totalDuration(plan())));
}

QString StartModel::totalInWords() const {
    return toQString(duration(*m_context.appearance.language(), Schedule::totalDuration(plan())));
}

qreal StartModel::workFraction() const {
    const auto segments = plan();
    const auto total = Schedule::totalDuration(segments);
    double work = 0;
    for (const auto& segment : segments)
        if (segment.kind == SegmentKind::work) work += segment.duration;
    return total > 0 ? work / total : 0;
}

void StartModel::resetTimings() {
    m_choice.change([](Profile& profile) { profile.resetTimings(); });
}

void StartModel::startSession() {
    const auto* const chosen = m_choice.profile();
    if (chosen == nullptr) return;
    const auto profile = *chosen;
    m_context.controller.start(profile, m_intent.toStdString());
    setIntent({});
}

std::string allowedSummary(const Profile& profile, const AppStrings& strings) {
    const auto apps = static_cast<std::int64_t>(profile.allowedApps.size());
    const auto sites = static_cast<std::int64_t>(profile.allowedDomains.size());
    if (sites != 0) return strings.appAndSiteCount(apps, sites);
    return apps != 0 ? strings.appCount(apps) : std::string{strings.noApps};
}

} // namespace velmorin
