#pragma once

#include "app/shell/QuoteTask.h"
#include "app/shell/TimelineModel.h"

namespace velmorin {

/// What the screens beside the one with the overlay show. Main thread.
class SecondaryModel : public velmorin::TimelineModel {
    Q_OBJECT
    QML_ELEMENT
    /// The moment whose sentences go with what the overlay shows.
    Q_PROPERTY(velmorin::QuoteTask::Category category READ category NOTIFY changed)

public:
    using TimelineModel::TimelineModel;

    QuoteTask::Category category() const { return m_category; }

protected:
    std::optional<double> redraw(Date now) override;

private:
    QuoteTask::Category m_category = QuoteTask::Urge;
};

} // namespace velmorin
