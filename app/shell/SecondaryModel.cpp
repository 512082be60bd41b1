#include "app/shell/SecondaryModel.h"

namespace velmorin {

std::optional<double> SecondaryModel::redraw(Date) {
    switch (session()->overlay()) {
    case SessionModel::Warning:
    case SessionModel::None: m_category = QuoteTask::Urge; break;
    case SessionModel::EmergencyExit: m_category = QuoteTask::Exit; break;
    case SessionModel::Finished: m_category = QuoteTask::Finish; break;
    case SessionModel::LockedBreak: m_category = QuoteTask::Rest; break;
    case SessionModel::BackToWork: m_category = QuoteTask::Returning; break;
    }
    return std::nullopt;
}

} // namespace velmorin
