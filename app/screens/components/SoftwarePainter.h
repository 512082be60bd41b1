#pragma once

#include <QPainter>
#include <QQuickWindow>
#include <QSGRendererInterface>

namespace velmorin {

/// What a render node of this window paints with, during its rendering; none where the scene is not rendered in
/// software.
inline QPainter* softwarePainter(QQuickWindow* window) {
    if (window == nullptr) return nullptr;
    auto* interface = window->rendererInterface();
    if (interface->graphicsApi() != QSGRendererInterface::Software) return nullptr;
    return static_cast<QPainter*>(interface->getResource(window, QSGRendererInterface::PainterResource));
}

} // namespace velmorin
