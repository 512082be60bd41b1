#pragma once

#include "app/screens/components/DrawnItem.h"

#include <QColor>
#include <QString>

namespace velmorin {

/// The drawing of Symbol: one of our line icons in one colour, as large as the item. An unknown name draws nothing.
class SymbolDrawing : public velmorin::DrawnItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged FINAL)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)
    /// Whether there is an icon of this name.
    Q_PROPERTY(bool isKnown READ isKnown NOTIFY nameChanged FINAL)

public:
    explicit SymbolDrawing(QQuickItem* parent = nullptr) : DrawnItem{parent} {}

    QString name() const { return m_name; }
    void setName(const QString& name);
    QColor color() const { return m_color; }
    void setColor(const QColor& color);
    bool isKnown() const;

Q_SIGNALS:
    void nameChanged();
    void colorChanged();

protected:
    Drawing drawing() const override;

private:
    QString m_name;
    QColor m_color;
};

} // namespace velmorin
