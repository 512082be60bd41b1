#pragma once

#include "app/shell/TimelineModel.h"

#include <QString>
#include <QStringList>

namespace velmorin {

/// A rest with the machine still locked: how long it lasts, and the thoughts that were kept for it. Main thread.
class RestModel : public velmorin::TimelineModel {
    Q_OBJECT
    QML_ELEMENT
    /// What is left of the rest; empty without a session.
    Q_PROPERTY(QString restLeft READ restLeft NOTIFY changed)
    /// The first open thoughts, at most five.
    Q_PROPERTY(QStringList thoughts READ thoughts NOTIFY changed)

public:
    using TimelineModel::TimelineModel;

    const QString& restLeft() const { return m_restLeft; }
    const QStringList& thoughts() const { return m_thoughts; }

protected:
    std::optional<double> redraw(Date now) override;

private:
    QString m_restLeft;
    QStringList m_thoughts;
};

} // namespace velmorin
