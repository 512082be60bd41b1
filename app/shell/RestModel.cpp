#include "app/shell/RestModel.h"

#include "app/shell/Text.h"
#include "core/language/Formatting.h"

namespace velmorin {

namespace {

constexpr qsizetype mostThoughts = 5;

} // namespace

/// The controller's status moves this on, once a second.
std::optional<double> RestModel::redraw(Date) {
    const auto& status = *context().controller.status();
    m_restLeft = status ? toQString(strings().restLeft(duration(language(), status->remainingInSegment))) : QString{};
    m_thoughts = session()->openThoughts().mid(0, mostThoughts);
    return std::nullopt;
}

} // namespace velmorin
