#pragma once

#include "app/shell/QuoteTask.h"
#include "app/shell/TimelineModel.h"

#include <QString>

namespace velmorin {

/// What stands behind the windows during the locked stretches of a session. Main thread.
class BackdropModel : public velmorin::TimelineModel {
    Q_OBJECT
    QML_ELEMENT
    /// The moment that the clock shows, in seconds since 2001-01-01 UTC.
    Q_PROPERTY(double date READ date NOTIFY changed)
    /// The share of the session that is still to come, from 0 to 1; -1 without a session.
    Q_PROPERTY(double remainingFraction READ remainingFraction NOTIFY changed)
    /// Hour and minute.
    Q_PROPERTY(QString timeOfDay READ timeOfDay NOTIFY changed)
    /// What is left of the session; empty without one.
    Q_PROPERTY(QString remaining READ remaining NOTIFY changed)
    Q_PROPERTY(velmorin::QuoteTask::Category category READ category NOTIFY quotesChanged)
    Q_PROPERTY(velmorin::QuoteTask::Category alternate READ alternate NOTIFY quotesChanged)
    /// Whether a thought can be written from here.
    Q_PROPERTY(bool takesThoughts READ takesThoughts NOTIFY changed)
    /// The keys that do the same from anywhere; empty where there are none.
    Q_PROPERTY(QString thoughtKeys READ thoughtKeys NOTIFY changed)

public:
    using TimelineModel::TimelineModel;

    double date() const { return m_date.secondsSince2001; }
    double remainingFraction() const { return m_remainingFraction; }
    const QString& timeOfDay() const { return m_timeOfDay; }
    const QString& remaining() const { return m_remaining; }
    QuoteTask::Category category() const { return m_isRest ? QuoteTask::Rest : QuoteTask::Urge; }
    QuoteTask::Category alternate() const { return m_isRest ? QuoteTask::None : QuoteTask::Returning; }
    bool takesThoughts() const;
    QString thoughtKeys() const;

    /// Opens what takes a thought.
    Q_INVOKABLE void writeThought();

Q_SIGNALS:
    void quotesChanged();

protected:
    void begin() override;
    std::optional<double> redraw(Date now) override;

private:
    void judgeRest();

    Date m_date;
    double m_remainingFraction = -1;
    QString m_timeOfDay;
    QString m_remaining;
    bool m_isRest = false;
};

} // namespace velmorin
