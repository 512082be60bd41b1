#include "app/screens/BreathingDisc.h"

#include <QPainter>
#include <cmath>

namespace velmorin {

namespace {

constexpr double smallest = 0.72;
constexpr double ringRadius = 34;
constexpr double discRadius = 32;
constexpr double ringWidth = 1.5;
constexpr float discOpacity = 0.55F;
/// Of one breath in: less than a third of a pixel each.
constexpr double steps = 40;

} // namespace

BreathingDisc::BreathingDisc(QQuickItem* parent) : DrawnItem{parent} {
    connect(this, &BreathingDisc::lookChanged, this, &QQuickItem::update);
}

void BreathingDisc::setBreath(double breath) {
    if (m_breath == breath) return;
    const double before = scaleNow();
    m_breath = breath;
    Q_EMIT breathChanged();
    if (scaleNow() != before) update();
}

double BreathingDisc::scaleNow() const {
    return smallest + (1 - smallest) * std::round(m_breath * steps) / steps;
}

DrawnItem::Drawing BreathingDisc::drawing() const {
    return [center = boundingRect().center(), scale = scaleNow() * m_unit, unit = m_unit,
            color = m_color](QPainter& painter) {
        QColor soft = color;
        soft.setAlphaF(discOpacity);
        painter.setPen(Qt::NoPen);
        painter.setBrush(soft);
        painter.drawEllipse(center, discRadius * scale, discRadius * scale);
        painter.setPen(QPen{color, ringWidth * unit});
        painter.setBrush(Qt::NoBrush);
        // The line lies within its radius.
        const double middle = ringRadius * scale - ringWidth * unit / 2;
        painter.drawEllipse(center, middle, middle);
    };
}

} // namespace velmorin
