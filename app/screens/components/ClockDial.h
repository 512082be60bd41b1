#pragma once

#include "app/screens/components/DrawnItem.h"
#include "app/seams/Cancellable.h"
#include "core/foundation/Calendar.h"

#include <QString>
#include <vector>

namespace velmorin {

/// The drawing of AnalogClock: hands in the colours of the theme and, during a session, a ring that shows what is left
/// of it. The same in all languages but for its numerals: it is never mirrored.
class ClockDial : public velmorin::DrawnItem {
    Q_OBJECT
    QML_ELEMENT
    /// The moment it shows, in seconds since 2001-01-01 00:00:00 UTC.
    Q_PROPERTY(double date READ date WRITE setDate NOTIFY dateChanged FINAL)
    /// What is left of the session, 0 to 1; below 0 it is a plain clock.
    Q_PROPERTY(double remainingFraction READ remainingFraction WRITE setRemainingFraction NOTIFY
                   remainingFractionChanged FINAL)
    /// Width and height of the clock.
    Q_PROPERTY(double size READ clockSize WRITE setClockSize NOTIFY clockSizeChanged FINAL)
    /// The time of day in words, for whoever cannot see the hands.
    Q_PROPERTY(QString timeText READ timeText NOTIFY timeTextChanged FINAL)

public:
    explicit ClockDial(QQuickItem* parent = nullptr);

    /// The calendar that all clocks go by: that of the user's time zone. Until it is set, UTC.
    static void setCalendar(const Calendar& calendar);

    double date() const { return m_date; }
    void setDate(double date);
    double remainingFraction() const { return m_remainingFraction; }
    void setRemainingFraction(double fraction);
    double clockSize() const { return m_size; }
    void setClockSize(double size);
    QString timeText() const;

Q_SIGNALS:
    void dateChanged();
    void remainingFractionChanged();
    void clockSizeChanged();
    void timeTextChanged();

protected:
    Drawing drawing() const override;

private:
    void changed();

    double m_date = 0;
    double m_remainingFraction = -1;
    double m_size = 0;
    std::vector<Cancellable> m_watches;
};

} // namespace velmorin
