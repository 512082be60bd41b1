#pragma once

#include "app/seams/CoverWindow.h"

#include <QQmlComponent>
#include <QUrl>
#include <QVariantMap>
#include <functional>
#include <optional>

class QQmlEngine;
class QQuickItem;
class QQuickWindow;

namespace velmorin {

/// What cover windows show: a component of QML, compiled once, when it is first needed. Main thread.
class QuickContent {
public:
    /// The values of the component's own properties, its required ones among them.
    using Properties = std::function<QVariantMap(const CoverContent&)>;

    /// The engine must outlive this.
    QuickContent(QQmlEngine& engine, const QUrl& component, Properties properties);

    /// Compiles the component now, so that the first window need not wait for it.
    void prepare();
    /// Makes the content of a window, which it fills. A component that does not load leaves the window empty, and the
    /// log says why.
    void fill(QQuickWindow& window, const CoverContent& content);

private:
    QQmlEngine& m_engine;
    QUrl m_source;
    std::optional<QQmlComponent> m_component;
    Properties m_properties;
};

} // namespace velmorin
