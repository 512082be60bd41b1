#include "app/shell/TimeRow.h"

#include "app/shell/Text.h"
#include "core/geometry/TimeSlider.h"
#include "core/language/Formatting.h"

namespace velmorin {

TimeRow::TimeRow(const TimeSetting& setting, ShellContext& context, ProfileChoice& choice, QObject* parent)
    : QObject{parent}, m_setting{setting}, m_context{context}, m_choice{choice} {}

QString TimeRow::title() const {
    return toQString(m_context.appearance.strings().*m_setting.title);
}

QString TimeRow::valueText() const {
    const auto language = *m_context.appearance.language();
    return toQString(m_setting.isCount ? number(language, stored())
                                       : duration(language, static_cast<double>(stored()) * 60));
}

void TimeRow::move(qreal position) {
    const auto value = TimeSlider::stored(position, m_setting.lower, m_setting.upper, m_setting.step);
    m_choice.change([&](Profile& profile) { m_setting.of(profile) = value; });
}

std::int64_t TimeRow::stored() const {
    const auto* const chosen = m_choice.profile();
    if (chosen == nullptr) return m_setting.lower;
    auto profile = *chosen;
    return m_setting.of(profile);
}

} // namespace velmorin
