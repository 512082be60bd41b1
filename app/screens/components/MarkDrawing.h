#pragma once

#include "app/screens/components/DrawnItem.h"

#include <QImage>
#include <QString>

namespace velmorin {

/// The drawing of AppMark: a picture clipped to a rounded square.
class MarkDrawing : public velmorin::DrawnItem {
    Q_OBJECT
    QML_ELEMENT
    /// The file of the picture.
    Q_PROPERTY(QString source READ source WRITE setSource NOTIFY sourceChanged FINAL)
    /// Whether there is such a picture.
    Q_PROPERTY(bool isLoaded READ isLoaded NOTIFY sourceChanged FINAL)

public:
    explicit MarkDrawing(QQuickItem* parent = nullptr) : DrawnItem{parent} {}

    QString source() const { return m_source; }
    void setSource(const QString& source);
    bool isLoaded() const { return !m_picture.isNull(); }

Q_SIGNALS:
    void sourceChanged();

protected:
    Drawing drawing() const override;

private:
    QString m_source;
    QImage m_picture;
};

} // namespace velmorin
