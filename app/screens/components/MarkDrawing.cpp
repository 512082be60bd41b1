#include "app/screens/components/MarkDrawing.h"

#include <QImageReader>
#include <algorithm>
#include <cmath>

namespace velmorin {

void MarkDrawing::setSource(const QString& source) {
    if (source == m_source) return;
    m_source = source;
    // Left to find the format out itself, the toolkit would load what reads all the others.
    QImageReader reader{source, "png"};
    reader.setAutoDetectImageFormat(false);
    m_picture = reader.read();
    Q_EMIT sourceChanged();
    update();
}

DrawnItem::Drawing MarkDrawing::drawing() const {
    if (m_picture.isNull()) return {};
    return [picture = m_picture, fitting = QImage{}, size = std::min(width(), height())](QPainter& painter) mutable {
        constexpr double cornerShare = 0.22;
        const double ratio = painter.deviceTransform().m11();
        const auto pixels = std::max(1, static_cast<int>(std::lround(size * std::abs(ratio))));
        // Scaled well once is better than a brush that is scaled badly each time.
        if (fitting.width() != pixels) {
            fitting = picture.scaled(pixels, pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        }
        QBrush brush{fitting};
        brush.setTransform(QTransform::fromScale(size / pixels, size / pixels));
        painter.setPen(Qt::NoPen);
        painter.setBrush(brush);
        painter.drawRoundedRect(QRectF{0, 0, size, size}, size * cornerShare, size * cornerShare);
    };
}

} // namespace velmorin
