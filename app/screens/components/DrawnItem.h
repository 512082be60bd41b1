#pragma once

#include <QPainter>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>
#include <functional>

namespace velmorin {

/// An item that paints straight into its window, with nothing kept in between: no picture of it, and no tree of shapes.
/// It appears where the scene is rendered in software, which is how the program renders; elsewhere it stays empty.
class DrawnItem : public QQuickItem {
    Q_OBJECT
    QML_ANONYMOUS

public:
    explicit DrawnItem(QQuickItem* parent = nullptr);

protected:
    /// Paints the item in its own coordinates. It may run later and must not refer to the item.
    using Drawing = std::function<void(QPainter& painter)>;
    virtual Drawing drawing() const = 0;

    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData*) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
};

} // namespace velmorin
