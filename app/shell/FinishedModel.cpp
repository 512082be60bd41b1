#include "app/shell/FinishedModel.h"

#include "app/shell/Text.h"
#include "core/language/Formatting.h"

namespace velmorin {

std::optional<double> FinishedModel::redraw(Date) {
    if (const auto* const finished = std::get_if<Overlay::Finished>(&*context().controller.overlay()))
        m_record = finished->record;
    m_values.clear();
    m_labels.clear();
    add(strings().focusTime, duration(language(), m_record.focusedSeconds));
    if (m_record.completedRounds) add(strings().completedRoundsLabel, number(language(), *m_record.completedRounds));
    add(strings().timesReturnedToWork, number(language(), m_record.returns));
    add(strings().thoughtsKept, number(language(), static_cast<std::int64_t>(context().data.openThoughts().size())));
    return std::nullopt;
}

void FinishedModel::add(std::string_view label, std::string_view value) {
    m_labels.push_back(toQString(label));
    m_values.push_back(toQString(value));
}

} // namespace velmorin
