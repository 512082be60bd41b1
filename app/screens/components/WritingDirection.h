#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickTextDocument>
#include <QtQml/qqmlregistration.h>

namespace velmorin {

/// Makes a text field write in one direction whatever its text begins with: a Persian sentence that begins with a Latin
/// name still reads from the right. The toolkit's field decides anew at every change of its text; so whoever uses this
/// calls `apply` after each. Main thread.
class WritingDirection : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument* document READ document WRITE setDocument NOTIFY documentChanged FINAL)
    Q_PROPERTY(bool isLeftToRight READ isLeftToRight WRITE setLeftToRight NOTIFY isLeftToRightChanged FINAL)

public:
    explicit WritingDirection(QObject* parent = nullptr) : QObject{parent} {}

    QQuickTextDocument* document() const { return m_document; }
    void setDocument(QQuickTextDocument* document);
    bool isLeftToRight() const { return m_isLeftToRight; }
    void setLeftToRight(bool isLeftToRight);
    Q_INVOKABLE void apply();

Q_SIGNALS:
    void documentChanged();
    void isLeftToRightChanged();

private:
    QPointer<QQuickTextDocument> m_document;
    bool m_isLeftToRight = true;
};

} // namespace velmorin
