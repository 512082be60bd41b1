#pragma once

#include "app/shell/TimelineModel.h"

#include <QString>

namespace velmorin {

/// The way out before the end: the wait, and the reason that the user has to give. Main thread.
class ExitModel : public velmorin::TimelineModel {
    Q_OBJECT
    QML_ELEMENT
    /// As the user types it.
    Q_PROPERTY(QString reason READ reason WRITE setReason NOTIFY reasonChanged)
    /// Whether the wait is over and the reason long enough.
    Q_PROPERTY(bool canConfirm READ canConfirm NOTIFY changed)
    /// What ends the session, or else what still holds it back.
    Q_PROPERTY(QString hint READ hint NOTIFY changed)

public:
    using TimelineModel::TimelineModel;

    const QString& reason() const { return m_reason; }
    void setReason(const QString& reason);
    bool canConfirm() const { return m_canConfirm; }
    const QString& hint() const { return m_hint; }

    /// Ends the session for this reason, where that may be.
    Q_INVOKABLE void confirm();

Q_SIGNALS:
    void reasonChanged();

protected:
    std::optional<double> redraw(Date now) override;

private:
    Date m_waitUntil;
    QString m_reason;
    bool m_canConfirm = false;
    QString m_hint;
};

} // namespace velmorin
