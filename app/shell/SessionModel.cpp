#include "app/shell/SessionModel.h"

#include "app/shell/Text.h"
#include "core/language/Formatting.h"

namespace velmorin {

SessionModel::SessionModel(ShellContext& context, QObject* parent) : QObject{parent}, m_context{context} {
    auto& controller = context.controller;
    auto& data = context.data;
    m_watches.push_back(controller.session().watch([this] { Q_EMIT sessionChanged(); }));
    m_watches.push_back(controller.status().watch([this] { Q_EMIT statusChanged(); }));
    m_watches.push_back(controller.overlay().watch([this] { Q_EMIT overlayChanged(); }));
    m_watches.push_back(data.thoughts().watch([this] { Q_EMIT thoughtsChanged(); }));
    m_watches.push_back(data.phoneLink().lockState().watch([this] { Q_EMIT phoneChanged(); }));
    m_watches.push_back(context.appearance.language().watch([this] {
        Q_EMIT sessionChanged();
        Q_EMIT statusChanged();
        Q_EMIT phoneChanged();
        Q_EMIT thoughtsChanged();
    }));
}

bool SessionModel::isActive() const {
    return m_context.controller.isActive();
}

SessionModel::Overlay SessionModel::overlay() const {
    return static_cast<Overlay>(m_context.controller.overlay()->index());
}

QString SessionModel::intent() const {
    const auto& session = *m_context.controller.session();
    return session ? writtenText(*m_context.appearance.language(), session->intent) : QString{};
}

bool SessionModel::isWork() const {
    const auto& status = *m_context.controller.status();
    return status && status->kind == SegmentKind::work;
}

bool SessionModel::isLockedBreak() const {
    const auto& status = *m_context.controller.status();
    return status && status->kind == SegmentKind::lockedBreak;
}

QString SessionModel::remainingInSegment() const {
    const auto& status = *m_context.controller.status();
    return status ? toQString(duration(*m_context.appearance.language(), status->remainingInSegment)) : QString{};
}

QString SessionModel::remainingTotal() const {
    const auto& status = *m_context.controller.status();
    return status ? toQString(duration(*m_context.appearance.language(), status->remainingTotal)) : QString{};
}

QString SessionModel::segmentAndTotal() const {
    const auto& status = *m_context.controller.status();
    if (!status) return {};
    const auto language = *m_context.appearance.language();
    return toQString(m_context.appearance.strings().segmentAndTotal(duration(language, status->remainingInSegment),
                                                                    duration(language, status->remainingTotal)));
}

QString SessionModel::returnedSoFar() const {
    const auto& session = *m_context.controller.session();
    if (!session || session->returns == 0) return {};
    return toQString(m_context.appearance.strings().returnedSoFar(session->returns));
}

QString SessionModel::phoneProblem() const {
    return toQString(m_context.data.phoneLink().problemText().value_or(""));
}

QString SessionModel::phoneStatus() const {
    return toQString(phoneStatusText(*m_context.data.phoneLink().lockState(), m_context.appearance.strings()));
}

QStringList SessionModel::openThoughts() const {
    QStringList texts;
    for (const auto& thought : m_context.data.openThoughts())
        texts.push_back(writtenText(*m_context.appearance.language(), thought.text));
    return texts;
}

void SessionModel::returnToWork() {
    m_context.controller.returnToWork();
}

void SessionModel::beginEmergencyExit() {
    m_context.controller.beginEmergencyExit();
}

void SessionModel::cancelEmergencyExit() {
    m_context.controller.cancelEmergencyExit();
}

void SessionModel::confirmEmergencyExit(const QString& reason) {
    m_context.controller.confirmEmergencyExit(reason.toStdString());
}

void SessionModel::dismissSummary() {
    m_context.controller.setOverlay(velmorin::Overlay::None{});
}

void SessionModel::addThought(const QString& text) {
    m_context.data.addThought(text.toStdString());
}

std::string_view phoneStatusText(LockState state, const AppStrings& strings) {
    switch (state) {
    case LockState::idle: return {};
    case LockState::sending: return strings.phoneLocking;
    case LockState::locked: return strings.phoneLockedNow;
    case LockState::noAnswer: return strings.phoneNoAnswer;
    case LockState::releasedByPhone: return strings.phoneReleased;
    case LockState::needsSetup: return strings.phoneNeedsSetup;
    }
    return {};
}

} // namespace velmorin
