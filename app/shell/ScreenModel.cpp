#include "app/shell/ScreenModel.h"

namespace velmorin {

void ScreenModel::setSession(SessionModel* session) {
    if (m_session == session) return;
    m_session = session;
    Q_EMIT sessionAssigned();
}

void ScreenModel::setShown(bool isShown) {
    if (m_isShown == isShown) return;
    m_isShown = isShown;
    Q_EMIT isShownChanged();
    if (m_isComplete) shownChanged();
}

void ScreenModel::componentComplete() {
    m_isComplete = m_session != nullptr;
    if (m_isComplete) begin();
}

} // namespace velmorin
