#pragma once

#include "app/shell/ProfilesModel.h"
#include "app/shell/ShellContext.h"
#include "app/shell/StartModel.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace velmorin {

/// The content of the main window, from its first showing on: the chosen tab, and its pages with what they hold. Main
/// thread.
class MainModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the main window.")
    Q_PROPERTY(MainTab tab READ tab WRITE setTab NOTIFY tabChanged)
    /// The tabs that have a page, in their order.
    Q_PROPERTY(QList<int> tabs READ tabs CONSTANT)
    Q_PROPERTY(velmorin::StartModel* start READ start CONSTANT)
    Q_PROPERTY(velmorin::ProfilesModel* profiles READ profiles CONSTANT)

public:
    enum MainTab { Start, Profiles, Thoughts, Stats, Settings };
    Q_ENUM(MainTab)

    /// The context must outlive this.
    explicit MainModel(ShellContext& context, QObject* parent = nullptr);

    MainTab tab() const { return m_tab; }
    void setTab(MainTab tab);
    QList<int> tabs() const { return {Start, Profiles}; }
    StartModel* start() { return &m_start; }
    ProfilesModel* profiles() { return &m_profiles; }

Q_SIGNALS:
    void tabChanged();

private:
    MainTab m_tab = Start;
    StartModel m_start;
    ProfilesModel m_profiles;
};

} // namespace velmorin
