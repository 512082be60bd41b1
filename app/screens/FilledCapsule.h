#pragma once

#include "app/screens/components/DrawnItem.h"

#include <QColor>

namespace velmorin {

/// A capsule with a bar in it that grows from one end.
class FilledCapsule : public velmorin::DrawnItem {
    Q_OBJECT
    QML_ELEMENT
    /// What the bar takes, from 0 to 1; it grows by whole pixels.
    Q_PROPERTY(double share READ share WRITE setShare NOTIFY shareChanged)
    /// Whether the bar grows from the right.
    Q_PROPERTY(bool isMirrored MEMBER m_isMirrored NOTIFY lookChanged)
    Q_PROPERTY(QColor bar MEMBER m_bar NOTIFY lookChanged)
    Q_PROPERTY(QColor ground MEMBER m_ground NOTIFY lookChanged)
    Q_PROPERTY(QColor line MEMBER m_line NOTIFY lookChanged)

public:
    explicit FilledCapsule(QQuickItem* parent = nullptr);

    double share() const { return m_share; }
    void setShare(double share);

Q_SIGNALS:
    void shareChanged();
    void lookChanged();

protected:
    Drawing drawing() const override;

private:
    /// Where the bar is, which is as high as the capsule.
    QRectF barPlace() const;

    double m_share = 0;
    bool m_isMirrored = false;
    QColor m_bar;
    QColor m_ground;
    QColor m_line;
};

} // namespace velmorin
