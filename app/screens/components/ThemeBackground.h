#pragma once

#include "app/seams/Cancellable.h"

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace velmorin {

/// The ground of every window: the theme's `base` with its two glows. It is computed anew where something in front of
/// it changes, and only there; no picture of it is kept. It appears where the scene is rendered in software, which is
/// how the program renders; elsewhere it stays empty.
class ThemeBackground : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit ThemeBackground(QQuickItem* parent = nullptr);

protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData*) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

private:
    Cancellable m_theme;
};

} // namespace velmorin
