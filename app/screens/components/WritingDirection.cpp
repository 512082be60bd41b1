#include "app/screens/components/WritingDirection.h"

#include <QTextDocument>
#include <QTextOption>

namespace velmorin {

void WritingDirection::setDocument(QQuickTextDocument* document) {
    if (document == m_document) return;
    m_document = document;
    Q_EMIT documentChanged();
    apply();
}

void WritingDirection::setLeftToRight(bool isLeftToRight) {
    if (isLeftToRight == m_isLeftToRight) return;
    m_isLeftToRight = isLeftToRight;
    Q_EMIT isLeftToRightChanged();
    apply();
}

void WritingDirection::apply() {
    if (m_document.isNull()) return;
    auto* text = m_document->textDocument();
    QTextOption option = text->defaultTextOption();
    const auto direction = m_isLeftToRight ? Qt::LeftToRight : Qt::RightToLeft;
    // Otherwise the alignment would count from the right when the direction does.
    const Qt::Alignment edge = Qt::AlignAbsolute | (m_isLeftToRight ? Qt::AlignLeft : Qt::AlignRight);
    if (option.textDirection() == direction && option.alignment() == edge) return;
    option.setTextDirection(direction);
    option.setAlignment(edge);
    text->setDefaultTextOption(option);
}

} // namespace velmorin
