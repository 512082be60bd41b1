#include "app/shell/ProfilesModel.h"

#include "app/shell/Text.h"

#include <utility>

namespace velmorin {

ProfilesModel::ProfilesModel(ShellContext& context, QObject* parent)
    : QObject{parent},
      m_context{context},
      m_choice{context.data},
      m_names{m_choice.names()},
      m_editor{new ProfileEditorModel{context, m_choice, this}} {
    m_watches.push_back(context.data.profiles().watch([this] { refresh(); }));
    m_watches.push_back(context.appearance.language().watch([this] { m_editor->refresh(); }));
}

void ProfilesModel::refresh() {
    m_editor->refresh();
    if (const auto fresh = m_choice.names(); fresh != m_names) {
        m_names = fresh;
        Q_EMIT namesChanged();
    }
    Q_EMIT changed();
}

void ProfilesModel::select(int index) {
    m_choice.choose(index);
    refresh();
}

void ProfilesModel::newProfile() {
    auto profiles = *m_context.data.profiles();
    profiles.emplace_back(std::string{m_context.appearance.strings().newProfile}, SessionMode::pomodoro);
    const auto place = static_cast<int>(profiles.size()) - 1;
    m_context.data.setProfiles(std::move(profiles));
    select(place);
}

void ProfilesModel::deleteProfile() {
    const auto place = m_choice.index();
    if (!place || !canDelete()) return;
    auto profiles = *m_context.data.profiles();
    profiles.erase(profiles.begin() + static_cast<std::ptrdiff_t>(*place));
    m_choice.forget();
    m_context.data.setProfiles(std::move(profiles));
}

} // namespace velmorin
