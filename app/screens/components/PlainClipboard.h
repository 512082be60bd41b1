#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace velmorin {

/// What can be pasted into a field of one line: the text with each break of a line as one space. Main thread.
class PlainClipboard : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    explicit PlainClipboard(QObject* parent = nullptr) : QObject{parent} {}

    /// What was copied; empty when that is no text.
    Q_INVOKABLE QString copied() const;
    /// What is selected anywhere on a desktop that hands that on; empty elsewhere.
    Q_INVOKABLE QString selected() const;
};

/// The text with every run of line breaks, and the white space around it, as one space; none at the ends.
QString asOneLine(const QString& text);

} // namespace velmorin
