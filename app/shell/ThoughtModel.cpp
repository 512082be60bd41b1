#include "app/shell/ThoughtModel.h"

#include "core/foundation/Text.h"

namespace velmorin {

namespace {

/// How long it is said that a thought was kept, in seconds.
constexpr double savedFor = 2;

} // namespace

bool ThoughtModel::save(const QString& text) {
    if (trimmed(text.toStdString()).empty()) return false;
    session()->addThought(text);
    setJustSaved(true);
    m_reset = context().timers.after(savedFor, [this] { setJustSaved(false); });
    return true;
}

void ThoughtModel::setJustSaved(bool justSaved) {
    if (m_justSaved == justSaved) return;
    m_justSaved = justSaved;
    Q_EMIT justSavedChanged();
}

} // namespace velmorin
