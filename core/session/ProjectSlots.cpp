#include "core/session/ProjectSlots.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace velmorin {

namespace {

/// When a project was first used. Of sessions started at one moment, the one listed first counts.
struct FirstUse {
    Date startedAt;
    std::size_t index;
    std::string_view name;

    bool operator<(const FirstUse& other) const {
        return startedAt != other.startedAt ? startedAt < other.startedAt : index < other.index;
    }
};

} // namespace

ProjectSlots::ProjectSlots(std::span<const SessionRecord> records) {
    std::unordered_map<std::string_view, FirstUse> firstUses;
    for (std::size_t index = 0; index < records.size(); ++index) {
        const auto& record = records[index];
        const FirstUse use{record.startedAt, index, record.profileName};
        const auto [place, isNew] = firstUses.try_emplace(record.profileName, use);
        if (!isNew && use < place->second) place->second = use;
    }
    std::vector<FirstUse> order;
    order.reserve(firstUses.size());
    for (const auto& [name, use] : firstUses)
        order.push_back(use);
    const std::size_t count = std::min(order.size(), maximum);
    std::ranges::partial_sort(order, order.begin() + static_cast<std::ptrdiff_t>(count), std::less<>{});
    for (std::size_t index = 0; index < count; ++index)
        names.emplace_back(order[index].name);
}

std::optional<std::size_t> ProjectSlots::slot(std::string_view name) const {
    const auto found = std::ranges::find(names, name);
    if (found == names.end()) return std::nullopt;
    return static_cast<std::size_t>(found - names.begin());
}

} // namespace velmorin
