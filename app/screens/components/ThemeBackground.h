#pragma once

#include "app/seams/Cancellable.h"

#include <QQuickItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace velmorin {

/// The ground of every window: the theme's `base` with its two glows. It is computed anew where something in front of
/// it changes, and only there; no picture of it is kept. It appears where the scene is rendered in software, which is
/// how the program renders; elsewhere it stays empty.
class ThemeBackground : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    /// The theme it shows, by its stored name such as "dawn"; when empty, that of the screens.
    Q_PROPERTY(QString theme READ theme WRITE setTheme NOTIFY themeChanged FINAL)

public:
    explicit ThemeBackground(QQuickItem* parent = nullptr);

    QString theme() const { return m_name; }
    void setTheme(const QString& name);

Q_SIGNALS:
    void themeChanged();

protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData*) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

private:
    QString m_name;
    Cancellable m_watch;
};

} // namespace velmorin
