#pragma once

#include "app/shell/TimelineModel.h"

#include <QStringList>

namespace velmorin {

/// What a session that has just ended came to, as figures with a label each. Main thread.
class FinishedModel : public velmorin::TimelineModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QStringList values READ values NOTIFY changed)
    /// As many as there are values.
    Q_PROPERTY(QStringList labels READ labels NOTIFY changed)

public:
    using TimelineModel::TimelineModel;

    const QStringList& values() const { return m_values; }
    const QStringList& labels() const { return m_labels; }

protected:
    std::optional<double> redraw(Date now) override;

private:
    void add(std::string_view label, std::string_view value);

    SessionRecord m_record;
    QStringList m_values;
    QStringList m_labels;
};

} // namespace velmorin
