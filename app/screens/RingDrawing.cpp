#include "app/screens/RingDrawing.h"

#include "app/screens/components/Theme.h"

#include <QLinearGradient>
#include <QPen>
#include <algorithm>
#include <cmath>

namespace velmorin {

namespace {

constexpr qreal outlineWidth = 2;
constexpr qreal arcWidth = 10;

} // namespace

RingDrawing::RingDrawing(QQuickItem* parent) : DrawnItem{parent} {
    m_theme = Appearance::shared().theme().watch([this] { update(); });
}

void RingDrawing::setFraction(qreal fraction) {
    if (fraction == m_fraction) return;
    m_fraction = fraction;
    Q_EMIT fractionChanged();
    update();
}

DrawnItem::Drawing RingDrawing::drawing() const {
    const auto side = std::min(width(), height()) - arcWidth;
    const QRectF ring{(width() - side) / 2, (height() - side) / 2, side, side};
    const auto sweep = static_cast<int>(std::lround(std::clamp(m_fraction, 0.0, 1.0) * 360 * 16));
    return [ring, sweep, colors = &Theme::colors(*Appearance::shared().theme())](QPainter& painter) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen({toQColor(colors->line), outlineWidth});
        painter.drawEllipse(ring);
        if (sweep == 0) return;
        QLinearGradient gradient{ring.topLeft(), ring.bottomRight()};
        gradient.setColorAt(0, toQColor(colors->accent));
        gradient.setColorAt(1, toQColor(colors->accent2));
        painter.setPen({gradient, arcWidth, Qt::SolidLine, Qt::RoundCap});
        // From the top on, clockwise; the toolkit counts sixteenths of a degree, against the clock.
        painter.drawArc(ring, 90 * 16, -sweep);
    };
}

} // namespace velmorin
