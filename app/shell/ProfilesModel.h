#pragma once

#include "app/shell/ProfileChoice.h"
#include "app/shell/ProfileEditorModel.h"
#include "app/shell/ShellContext.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>
#include <vector>

namespace velmorin {

/// The page of profiles: all of them, and the chosen one to edit. Main thread.
class ProfilesModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the main window.")
    Q_PROPERTY(QList<QString> names READ names NOTIFY namesChanged)
    /// The place of the chosen profile; -1 without profiles.
    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY changed)
    /// Whether there would be a profile left.
    Q_PROPERTY(bool canDelete READ canDelete NOTIFY changed)
    Q_PROPERTY(velmorin::ProfileEditorModel* editor READ editor CONSTANT)

public:
    /// The context must outlive this.
    explicit ProfilesModel(ShellContext& context, QObject* parent = nullptr);

    QStringList names() const { return m_choice.names(); }
    int selectedIndex() const { return m_choice.place(); }
    bool canDelete() const { return m_context.data.profiles()->size() > 1; }
    ProfileEditorModel* editor() const { return m_editor; }

    Q_INVOKABLE void select(int index);
    /// Adds a profile and chooses it.
    Q_INVOKABLE void newProfile();
    /// Removes the chosen profile, but never the last one.
    Q_INVOKABLE void deleteProfile();

Q_SIGNALS:
    void changed();
    void namesChanged();

private:
    void refresh();

    ShellContext& m_context;
    ProfileChoice m_choice;
    QStringList m_names; ///< as they were last told
    ProfileEditorModel* m_editor;
    std::vector<Cancellable> m_watches;
};

} // namespace velmorin
