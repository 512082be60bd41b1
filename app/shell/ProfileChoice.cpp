#include "app/shell/ProfileChoice.h"

#include "app/shell/Text.h"

#include <algorithm>
#include <utility>

namespace velmorin {

QStringList ProfileChoice::names() const {
    QStringList names;
    for (const auto& profile : *m_data.profiles())
        names.push_back(toQString(profile.name));
    return names;
}

std::optional<std::size_t> ProfileChoice::index() const {
    const auto& profiles = *m_data.profiles();
    if (profiles.empty()) return std::nullopt;
    if (!m_selectedID) return 0;
    const auto found = std::ranges::find(profiles, *m_selectedID, &Profile::id);
    return found == profiles.end() ? 0 : static_cast<std::size_t>(found - profiles.begin());
}

int ProfileChoice::place() const {
    const auto chosen = index();
    return chosen ? static_cast<int>(*chosen) : -1;
}

const Profile* ProfileChoice::profile() const {
    const auto place = index();
    return place ? &(*m_data.profiles())[*place] : nullptr;
}

void ProfileChoice::choose(int place) {
    const auto& profiles = *m_data.profiles();
    if (place < 0 || static_cast<std::size_t>(place) >= profiles.size()) return;
    m_selectedID = profiles[static_cast<std::size_t>(place)].id;
}

void ProfileChoice::change(const std::function<void(Profile&)>& change) {
    const auto place = index();
    if (!place) return;
    auto profiles = *m_data.profiles();
    auto& profile = profiles[*place];
    const auto before = profile;
    change(profile);
    if (!(profile == before)) m_data.setProfiles(std::move(profiles));
}

} // namespace velmorin
