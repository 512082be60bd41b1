#include "app/shell/WarningModel.h"

#include "app/shell/Text.h"
#include "core/language/Formatting.h"

#include <algorithm>

namespace velmorin {

namespace {

/// How often the filling of the button moves on, in seconds.
constexpr double pace = 0.25;
/// The shortest pause that the filling is worked out for, in seconds.
constexpr double shortestPause = 0.1;

/// From 0 to 1; 1 from the end of the pause on.
double progress(const WarningInfo& info, Date now) {
    if (now >= info.pauseEndsAt) return 1;
    const double span = std::max(info.pauseEndsAt - info.startedAt, shortestPause);
    return std::clamp((now - info.startedAt) / span, 0.0, 1.0);
}

} // namespace

std::optional<double> WarningModel::redraw(Date now) {
    // What was up last stays while the screen is on its way out.
    if (const auto* const warning = std::get_if<Overlay::Warning>(&*context().controller.overlay()))
        m_info = warning->info;
    m_progress = velmorin::progress(m_info, now);
    m_canWait = toQString(strings().canWait(isolated(m_info.target)));
    const auto& status = *context().controller.status();
    m_timeLeft = status ? toQString(strings().timeLeft(duration(language(), status->remainingTotal))) : QString{};
    return isReady() ? std::nullopt : std::optional{std::min(pace, m_info.pauseEndsAt - now)};
}

void WarningModel::returnToWork() {
    if (now() >= m_info.pauseEndsAt) session()->returnToWork();
}

} // namespace velmorin
