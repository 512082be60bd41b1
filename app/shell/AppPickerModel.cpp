#include "app/shell/AppPickerModel.h"

#include "app/engine/AppCatalog.h"
#include "app/shell/Text.h"

#include <QUrl>
#include <algorithm>
#include <cstddef>

namespace velmorin {

namespace {

/// What pictures are chosen for, in pixels a side: sharp also where a screen has two of them for one.
constexpr int iconPixels = 64;

} // namespace

AppPickerModel::AppPickerModel(ShellContext& context, ProfileChoice& choice, QObject* parent)
    : QAbstractListModel{parent},
      m_context{context},
      m_choice{choice},
      m_apps{AppCatalog::scan(context.installedApplications, context.workspace, context.bundleID,
                              *context.appearance.language())},
      m_filtered{m_apps} {}

int AppPickerModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_filtered.size());
}

QVariant AppPickerModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const auto& app = m_filtered[static_cast<std::size_t>(index.row())];
    switch (role) {
    case NameRole: return toQString(app.name);
    case IconRole: {
        const auto file = m_context.installedApplications.iconFile(app.path, iconPixels);
        return file ? QUrl::fromLocalFile(toQString(*file)) : QUrl{};
    }
    case OnRole: return isOn(app);
    default: return {};
    }
}

QHash<int, QByteArray> AppPickerModel::roleNames() const {
    return {{NameRole, "name"}, {IconRole, "icon"}, {OnRole, "isOn"}};
}

void AppPickerModel::setQuery(const QString& query) {
    if (query == m_query) return;
    m_query = query;
    beginResetModel();
    m_filtered = AppCatalog::filtered(m_apps, query.toStdString());
    endResetModel();
    Q_EMIT queryChanged();
}

bool AppPickerModel::isOn(const InstalledApp& app) const {
    const auto* const profile = m_choice.profile();
    return profile != nullptr &&
           std::ranges::find(profile->allowedApps, app.bundleID, &AllowedApp::bundleID) != profile->allowedApps.end();
}

void AppPickerModel::setOn(int row, bool isOn) {
    if (row < 0 || static_cast<std::size_t>(row) >= m_filtered.size()) return;
    const auto app = m_filtered[static_cast<std::size_t>(row)];
    if (isOn == this->isOn(app)) return;
    m_choice.change([&](Profile& profile) {
        if (isOn)
            profile.allowedApps.push_back({app.bundleID, app.name});
        else
            std::erase_if(profile.allowedApps, [&](const auto& allowed) { return allowed.bundleID == app.bundleID; });
    });
}

void AppPickerModel::refresh() {
    if (!m_filtered.empty()) Q_EMIT dataChanged(index(0), index(static_cast<int>(m_filtered.size()) - 1), {OnRole});
}

} // namespace velmorin
