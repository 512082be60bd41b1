#pragma once

#include "app/screens/components/DrawnItem.h"

#include <QColor>

namespace velmorin {

/// A disc in a ring, both as large as the breath has come in.
class BreathingDisc : public velmorin::DrawnItem {
    Q_OBJECT
    QML_ELEMENT
    /// How far the breath has come in, from 0 to 1. It is drawn in steps that are too small to be seen.
    Q_PROPERTY(double breath READ breath WRITE setBreath NOTIFY breathChanged)
    /// What every length is multiplied by.
    Q_PROPERTY(double unit MEMBER m_unit NOTIFY lookChanged)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged)

public:
    explicit BreathingDisc(QQuickItem* parent = nullptr);

    double breath() const { return m_breath; }
    void setBreath(double breath);

Q_SIGNALS:
    void breathChanged();
    void lookChanged();

protected:
    Drawing drawing() const override;

private:
    /// By what the disc and its ring are multiplied.
    double scaleNow() const;

    double m_breath = 0;
    double m_unit = 1;
    QColor m_color;
};

} // namespace velmorin
