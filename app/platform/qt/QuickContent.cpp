#include "app/platform/qt/QuickContent.h"

#include <QDebug>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <memory>
#include <utility>

namespace velmorin {

QuickContent::QuickContent(QQmlEngine& engine, const QUrl& component, Properties properties)
    : m_engine{engine}, m_source{component}, m_properties{std::move(properties)} {}

void QuickContent::prepare() {
    if (!m_component) m_component.emplace(&m_engine, m_source, QQmlComponent::PreferSynchronous);
}

void QuickContent::fill(QQuickWindow& window, const CoverContent& content) {
    prepare();
    std::unique_ptr<QObject> made{m_component->createWithInitialProperties(m_properties(content))};
    auto* const item = qobject_cast<QQuickItem*>(made.get());
    if (item == nullptr) {
        qWarning() << m_component->errors();
        return;
    }
    static_cast<void>(made.release()); // the window owns it now
    item->setParent(window.contentItem());
    item->setParentItem(window.contentItem());
    item->setSize(window.size());
    QObject::connect(&window, &QQuickWindow::widthChanged, item, [item](int width) { item->setWidth(width); });
    QObject::connect(&window, &QQuickWindow::heightChanged, item, [item](int height) { item->setHeight(height); });
}

} // namespace velmorin
