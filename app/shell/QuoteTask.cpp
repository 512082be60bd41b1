#include "app/shell/QuoteTask.h"

#include "app/shell/Text.h"

namespace velmorin {

void QuoteTask::setCategory(Category category) {
    if (m_category == category) return;
    m_category = category;
    Q_EMIT categoryChanged();
    beginAnew();
}

void QuoteTask::setAlternate(Category alternate) {
    if (m_alternate == alternate) return;
    m_alternate = alternate;
    Q_EMIT alternateChanged();
    beginAnew();
}

void QuoteTask::setRotateEvery(double seconds) {
    if (m_rotateEvery == seconds) return;
    m_rotateEvery = seconds;
    Q_EMIT rotateEveryChanged();
    beginAnew();
}

/// What changes together is one new beginning, and none for a screen that goes at the same time.
void QuoteTask::beginAnew() {
    if (isComplete() && isShown()) m_turn = context().timers.after(0, [this] { restart(); });
}

void QuoteTask::shownChanged() {
    if (isShown()) {
        restart();
    } else {
        m_turn.cancel();
    }
}

void QuoteTask::restart() {
    m_hasRotated = false;
    m_next = m_alternate != None ? m_alternate : m_category;
    scheduleRotation();
    draw(m_category);
}

void QuoteTask::scheduleRotation() {
    m_turn = m_rotateEvery > 0 ? context().timers.after(m_rotateEvery, [this] { rotate(); }) : Cancellable{};
}

void QuoteTask::rotate() {
    const Category present = m_next;
    m_next = present == m_category && m_alternate != None ? m_alternate : m_category;
    m_hasRotated = true;
    scheduleRotation();
    draw(present);
}

void QuoteTask::draw(Category category) {
    m_text = toQString(context().data.nextQuote(static_cast<QuoteCategory>(category)));
    Q_EMIT textChanged();
}

} // namespace velmorin
