#include "app/screens/components/PlainClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QStringList>

namespace velmorin {

QString asOneLine(const QString& text) {
    static const QRegularExpression breaks{QStringLiteral("\\s*[\\r\\n\\x{2028}\\x{2029}]\\s*")};
    QStringList lines = text.split(breaks);
    lines.removeAll(QString{});
    return lines.join(QLatin1Char(' '));
}

QString PlainClipboard::copied() const {
    return asOneLine(QGuiApplication::clipboard()->text());
}

QString PlainClipboard::selected() const {
    auto* clipboard = QGuiApplication::clipboard();
    return clipboard->supportsSelection() ? asOneLine(clipboard->text(QClipboard::Selection)) : QString{};
}

} // namespace velmorin
