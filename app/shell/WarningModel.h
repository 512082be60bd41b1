#pragma once

#include "app/shell/TimelineModel.h"

#include <QString>

namespace velmorin {

/// A counted attempt to leave: what it was, and how far its pause has come. Main thread.
class WarningModel : public velmorin::TimelineModel {
    Q_OBJECT
    QML_ELEMENT
    /// How much of the pause has passed, from 0 to 1.
    Q_PROPERTY(double progress READ progress NOTIFY changed)
    /// Whether the pause is over, so that the way back is open.
    Q_PROPERTY(bool isReady READ isReady NOTIFY changed)
    /// That what the user tried to reach can wait.
    Q_PROPERTY(QString canWait READ canWait NOTIFY changed)
    /// What is left of the whole session; empty without one.
    Q_PROPERTY(QString timeLeft READ timeLeft NOTIFY changed)

public:
    using TimelineModel::TimelineModel;

    double progress() const { return m_progress; }
    bool isReady() const { return m_progress >= 1; }
    const QString& canWait() const { return m_canWait; }
    const QString& timeLeft() const { return m_timeLeft; }

    /// Goes back to work, once the pause is over; before that, nothing.
    Q_INVOKABLE void returnToWork();

protected:
    std::optional<double> redraw(Date now) override;

private:
    WarningInfo m_info;
    double m_progress = 0;
    QString m_canWait;
    QString m_timeLeft;
};

} // namespace velmorin
