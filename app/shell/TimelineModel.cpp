#include "app/shell/TimelineModel.h"

#include <algorithm>

namespace velmorin {

namespace {

/// The wall clock may be a little behind the timers, and what is due in no time at all must not keep the program busy.
constexpr double shortestWait = 0.001;

} // namespace

void TimelineModel::begin() {
    connect(session(), &SessionModel::sessionChanged, this, &TimelineModel::updateIfShown);
    connect(session(), &SessionModel::statusChanged, this, &TimelineModel::updateIfShown);
    connect(session(), &SessionModel::overlayChanged, this, &TimelineModel::updateIfShown);
    connect(session(), &SessionModel::thoughtsChanged, this, &TimelineModel::updateIfShown);
    update();
}

/// Nobody sees what has changed meanwhile; coming up finds it.
void TimelineModel::updateIfShown() {
    if (isShown()) update();
}

void TimelineModel::update() {
    if (!isComplete()) return;
    const auto wait = redraw(now());
    m_next =
        wait && isShown() ? context().timers.after(std::max(*wait, shortestWait), [this] { update(); }) : Cancellable{};
    Q_EMIT changed();
}

} // namespace velmorin
