#pragma once

#include "app/screens/components/DrawnItem.h"
#include "app/seams/Cancellable.h"

namespace velmorin {

/// A ring in the theme's line colour, and over it the part that is filled, in its accents. Main thread.
class RingDrawing : public DrawnItem {
    Q_OBJECT
    QML_ELEMENT
    /// How much is filled, from the top on and clockwise, 0 to 1.
    Q_PROPERTY(qreal fraction READ fraction WRITE setFraction NOTIFY fractionChanged FINAL)

public:
    explicit RingDrawing(QQuickItem* parent = nullptr);

    qreal fraction() const { return m_fraction; }
    void setFraction(qreal fraction);

Q_SIGNALS:
    void fractionChanged();

protected:
    Drawing drawing() const override;

private:
    qreal m_fraction = 0;
    Cancellable m_theme;
};

} // namespace velmorin
