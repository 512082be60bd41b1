#include "app/screens/components/ThemeBackground.h"

#include "app/screens/components/SoftwarePainter.h"
#include "app/strings/Appearance.h"
#include "app/theme/GlowField.h"
#include "core/foundation/RawValue.h"

#include <QImage>
#include <QQuickWindow>
#include <QSGRenderNode>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <span>

namespace velmorin {

namespace {

/// The renderer sends all of a node to the screen when a part of it has changed. So the ground is many small nodes, and
/// a clock that ticks in front of it costs the few that it touches.
constexpr int tileWidth = 256;
constexpr int tileHeight = 96;

/// What all tiles share.
struct Ground {
    QQuickWindow* window = nullptr;
    GlowField field;
};

class Tile final : public QSGRenderNode {
public:
    Tile(const Ground& ground, QRectF bounds) : m_ground{ground}, m_bounds{bounds} {}

    void render(const RenderState* state) override {
        auto* painter = softwarePainter(m_ground.window);
        if (painter == nullptr) return;
        // Pixels are computed one by one, however the item's units relate to them.
        painter->setTransform(matrix()->toTransform());
        const QTransform toDevice = painter->deviceTransform();
        const QTransform toItem = toDevice.inverted();
        const QRect covered = toDevice.mapRect(m_bounds).toAlignedRect();
        if (toDevice.isRotating()) painter->setClipRect(m_bounds);
        painter->setTransform({});
        painter->setClipRegion(*state->clipRegion(), toDevice.isRotating() ? Qt::IntersectClip : Qt::ReplaceClip);
        const QTransform sceneToDevice = painter->deviceTransform();
        const double ratio = painter->device()->devicePixelRatio();
        painter->setViewTransformEnabled(false);
        painter->setTransform(QTransform::fromScale(1 / ratio, 1 / ratio));
        painter->setOpacity(inheritedOpacity());
        painter->setCompositionMode(inheritedOpacity() < 1 ? QPainter::CompositionMode_SourceOver
                                                           : QPainter::CompositionMode_Source);
        for (const QRect& changed : *state->clipRegion()) {
            paint(*painter, covered & sceneToDevice.mapRect(QRectF{changed}).toAlignedRect(), toItem);
        }
    }

    RenderingFlags flags() const override { return BoundedRectRendering | OpaqueRendering; }
    QRectF rect() const override { return m_bounds; }

private:
    /// Fills an area of device pixels, a few rows at a time.
    void paint(QPainter& painter, const QRect& area, const QTransform& toItem) const {
        constexpr int bufferedPixels = 8192;
        alignas(16) std::array<std::uint32_t, bufferedPixels> pixels{};
        const int width = std::min(area.width(), bufferedPixels);
        if (width <= 0 || area.height() <= 0) return;
        const int rowsAtOnce = bufferedPixels / width;
        for (int top = area.top(); top <= area.bottom(); top += rowsAtOnce) {
            const int rows = std::min(rowsAtOnce, area.bottom() - top + 1);
            for (int row = 0; row < rows; ++row) {
                const QPointF first = toItem.map(QPointF{area.left() + 0.5, top + row + 0.5});
                const auto offset = static_cast<std::size_t>(row) * static_cast<std::size_t>(width);
                m_ground.field.fill(std::span{pixels}.subspan(offset, static_cast<std::size_t>(width)),
                                    {first.x(), first.y(), toItem.m11(), toItem.m12()});
            }
            painter.drawImage(QPoint{area.left(), top}, QImage{reinterpret_cast<const uchar*>(pixels.data()), width,
                                                               rows, width * 4, QImage::Format_RGB32});
        }
    }

    const Ground& m_ground;
    QRectF m_bounds;
};

class GroundNode final : public QSGNode {
public:
    GroundNode(QQuickWindow* window, QSizeF size, const ThemeColors& colors)
        : m_ground{window, GlowField{colors, size.width(), size.height()}} {
        const QRect whole = QRectF{QPointF{}, size}.toAlignedRect();
        for (int top = 0; top < whole.height(); top += tileHeight) {
            for (int left = 0; left < whole.width(); left += tileWidth) {
                const QRectF tile{QRect{left, top, tileWidth, tileHeight}};
                appendChildNode(new Tile{m_ground, tile & QRectF{QPointF{}, size}});
            }
        }
    }

private:
    Ground m_ground;
};

} // namespace

ThemeBackground::ThemeBackground(QQuickItem* parent) : QQuickItem{parent} {
    setFlag(ItemHasContents);
    m_watch = Appearance::shared().theme().watch([this] { update(); });
}

void ThemeBackground::setTheme(const QString& name) {
    if (name == m_name) return;
    m_name = name;
    Q_EMIT themeChanged();
    update();
}

QSGNode* ThemeBackground::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
    delete node;
    const auto own = fromRawValue<ColorTheme>(m_name.toStdString());
    return new GroundNode{window(), size(), ThemeColors::of(own.value_or(*Appearance::shared().theme()))};
}

void ThemeBackground::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size()) update();
}

} // namespace velmorin
