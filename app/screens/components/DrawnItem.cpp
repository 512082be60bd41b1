#include "app/screens/components/DrawnItem.h"

#include "app/screens/components/SoftwarePainter.h"

#include <QQuickWindow>
#include <QSGRenderNode>
#include <utility>

namespace velmorin {

namespace {

class DrawingNode final : public QSGRenderNode {
public:
    void set(QQuickWindow* window, QRectF bounds, std::function<void(QPainter&)> drawing) {
        m_window = window;
        m_bounds = bounds;
        m_drawing = std::move(drawing);
        markDirty(DirtyMaterial);
    }

    void render(const RenderState* state) override {
        auto* painter = softwarePainter(m_window);
        if (painter == nullptr || !m_drawing) return;
        painter->setClipRegion(*state->clipRegion());
        painter->setTransform(matrix()->toTransform());
        painter->setOpacity(inheritedOpacity());
        painter->setRenderHint(QPainter::Antialiasing);
        m_drawing(*painter);
    }

    RenderingFlags flags() const override { return BoundedRectRendering; }
    QRectF rect() const override { return m_bounds; }

private:
    QQuickWindow* m_window = nullptr;
    QRectF m_bounds;
    std::function<void(QPainter&)> m_drawing;
};

} // namespace

DrawnItem::DrawnItem(QQuickItem* parent) : QQuickItem{parent} {
    setFlag(ItemHasContents);
}

QSGNode* DrawnItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
    auto* drawn = node == nullptr ? new DrawingNode : static_cast<DrawingNode*>(node);
    drawn->set(window(), boundingRect(), drawing());
    return drawn;
}

void DrawnItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size()) update();
}

} // namespace velmorin
