#include "app/shell/ExitModel.h"

#include "app/shell/Text.h"
#include "core/language/Formatting.h"
#include "core/rules/Friction.h"

#include <algorithm>

namespace velmorin {

namespace {

/// How often the countdown moves on, in seconds.
constexpr double pace = 1;

} // namespace

void ExitModel::setReason(const QString& reason) {
    if (m_reason == reason) return;
    m_reason = reason;
    Q_EMIT reasonChanged();
    update();
}

std::optional<double> ExitModel::redraw(Date now) {
    if (const auto* const exit = std::get_if<Overlay::EmergencyExit>(&*context().controller.overlay()))
        m_waitUntil = exit->waitUntil;
    const double left = m_waitUntil - now;
    m_canConfirm = Friction::canConfirmExit(m_reason.toStdString(), m_waitUntil, now);
    if (m_canConfirm) {
        m_hint = toQString(strings().floatingEndSession);
    } else if (left > 0) {
        m_hint = toQString(strings().endAvailableIn(duration(language(), left)));
    } else {
        m_hint = toQString(strings().reasonTooShort);
    }
    return left > 0 ? std::min(pace, left) : pace;
}

void ExitModel::confirm() {
    session()->confirmEmergencyExit(m_reason);
}

} // namespace velmorin
