#pragma once

#include "app/seams/CoverWindow.h"

#include <QQmlComponent>
#include <QVariantMap>
#include <functional>

class QQmlEngine;
class QQuickItem;
class QQuickWindow;
class QUrl;

namespace velmorin {

/// What cover windows show: a component of QML, compiled once. Main thread.
class QuickContent {
public:
    /// The values of the component's own properties, its required ones among them.
    using Properties = std::function<QVariantMap(const CoverContent&)>;

    /// The engine must outlive this.
    QuickContent(QQmlEngine& engine, const QUrl& component, Properties properties);

    /// Makes the content of a window, which it fills. A component that does not load leaves the window empty, and the
    /// log says why.
    void fill(QQuickWindow& window, const CoverContent& content);

private:
    QQmlComponent m_component;
    Properties m_properties;
};

} // namespace velmorin
