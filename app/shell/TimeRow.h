#pragma once

#include "app/shell/ProfileChoice.h"
#include "app/shell/ShellContext.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <cstdint>
#include <string_view>

namespace velmorin {

/// The program's limits on one timing of a session, in minutes or, for a count, in pieces.
struct TimeSetting {
    std::string_view AppStrings::*title = nullptr;
    std::int64_t& (*of)(Profile& profile) = nullptr; ///< where the profile keeps it
    std::int64_t lower = 0;
    std::int64_t upper = 0;
    std::int64_t step = 1;
    bool isCount = false;
};

/// One timing of the chosen profile, as its slider shows it. Main thread.
class TimeRow : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to the start page.")
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(qreal from READ from CONSTANT)
    Q_PROPERTY(qreal to READ to CONSTANT)
    Q_PROPERTY(qreal stepSize READ stepSize CONSTANT)
    /// What the profile has; the lower limit without a profile.
    Q_PROPERTY(qreal value READ value NOTIFY changed)
    Q_PROPERTY(QString valueText READ valueText NOTIFY changed)

public:
    /// All must outlive this.
    TimeRow(const TimeSetting& setting, ShellContext& context, ProfileChoice& choice, QObject* parent);

    QString title() const;
    qreal from() const { return static_cast<qreal>(m_setting.lower); }
    qreal to() const { return static_cast<qreal>(m_setting.upper); }
    qreal stepSize() const { return static_cast<qreal>(m_setting.step); }
    qreal value() const { return static_cast<qreal>(stored()); }
    QString valueText() const;

    /// Puts the profile's value where the slider stands, on the grid and within the limits.
    Q_INVOKABLE void move(qreal position);

Q_SIGNALS:
    void changed();

private:
    std::int64_t stored() const;

    const TimeSetting& m_setting;
    ShellContext& m_context;
    ProfileChoice& m_choice;
};

} // namespace velmorin
