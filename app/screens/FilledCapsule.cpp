#include "app/screens/FilledCapsule.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace velmorin {

FilledCapsule::FilledCapsule(QQuickItem* parent) : DrawnItem{parent} {
    connect(this, &FilledCapsule::lookChanged, this, &QQuickItem::update);
}

void FilledCapsule::setShare(double share) {
    if (m_share == share) return;
    const QRectF before = barPlace();
    m_share = share;
    Q_EMIT shareChanged();
    if (barPlace() != before) update();
}

QRectF FilledCapsule::barPlace() const {
    const double length = std::round(m_share * width());
    return {m_isMirrored ? width() - length : 0, 0, length, height()};
}

DrawnItem::Drawing FilledCapsule::drawing() const {
    return
        [size = boundingRect(), place = barPlace(), bar = m_bar, ground = m_ground, line = m_line](QPainter& painter) {
            const QRectF inner = size.adjusted(0.5, 0.5, -0.5, -0.5);
            QPainterPath capsule;
            capsule.addRoundedRect(inner, inner.height() / 2, inner.height() / 2);
            painter.save();
            painter.setClipRect(size.intersected({place.right(), 0, size.width() - place.right(), size.height()}) |
                                    QRectF{0, 0, place.left(), size.height()},
                                Qt::IntersectClip);
            painter.fillPath(capsule, ground);
            painter.restore();
            painter.save();
            painter.setClipRect(place, Qt::IntersectClip);
            painter.fillPath(capsule, bar);
            painter.restore();
            painter.strokePath(capsule, QPen{line, 1});
        };
}

} // namespace velmorin
