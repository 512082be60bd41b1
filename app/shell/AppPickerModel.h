#pragma once

#include "app/seams/InstalledApplications.h"
#include "app/shell/ProfileChoice.h"
#include "app/shell/ShellContext.h"

#include <QAbstractListModel>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <vector>

namespace velmorin {

/// The applications of this computer, to choose those that the profile allows. Looks for them once, when it is made.
/// Main thread.
class AppPickerModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to the profile editor.")
    /// What the names have to contain; empty for all.
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)

public:
    /// What a row tells: the application's name, the address of its picture, empty for none, and whether it is allowed.
    enum Role { NameRole = Qt::UserRole, IconRole, OnRole };

    /// Both must outlive this.
    AppPickerModel(ShellContext& context, ProfileChoice& choice, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    QString query() const { return m_query; }
    void setQuery(const QString& query);

    /// Allows the application of a row, after those that are allowed already, or no longer.
    Q_INVOKABLE void setOn(int row, bool isOn);

    /// Shows which applications are allowed now.
    void refresh();

Q_SIGNALS:
    void queryChanged();

private:
    bool isOn(const InstalledApp& app) const;

    ShellContext& m_context;
    ProfileChoice& m_choice;
    QString m_query;
    std::vector<InstalledApp> m_apps;
    std::vector<InstalledApp> m_filtered;
};

} // namespace velmorin
