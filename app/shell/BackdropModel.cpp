#include "app/shell/BackdropModel.h"

#include "app/shell/Text.h"
#include "core/language/Formatting.h"

namespace velmorin {

namespace {

/// How often the clock moves on, in seconds.
constexpr double pace = 5;

} // namespace

/// The status changes every second, the clock moves at its own pace.
void BackdropModel::begin() {
    connect(session(), &SessionModel::sessionChanged, this, &BackdropModel::updateIfShown);
    connect(session(), &SessionModel::statusChanged, this, &BackdropModel::judgeRest);
    judgeRest();
    update();
}

void BackdropModel::judgeRest() {
    const bool isRest = session()->isLockedBreak();
    if (m_isRest == isRest) return;
    m_isRest = isRest;
    Q_EMIT quotesChanged();
}

std::optional<double> BackdropModel::redraw(Date now) {
    m_date = now;
    m_timeOfDay = toQString(velmorin::timeOfDay(language(), now, context().calendar));
    const auto& session = *context().controller.session();
    m_remainingFraction = session ? session->remainingFraction(now) : -1;
    m_remaining = session ? toQString(duration(language(), session->status(now).remainingTotal)) : QString{};
    return pace;
}

bool BackdropModel::takesThoughts() const {
    return session() && context().writeThought != nullptr;
}

QString BackdropModel::thoughtKeys() const {
    return session() && context().thoughtKeys ? toQString(context().thoughtKeys(language())) : QString{};
}

void BackdropModel::writeThought() {
    if (takesThoughts()) context().writeThought();
}

} // namespace velmorin
