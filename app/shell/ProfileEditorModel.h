#pragma once

#include "app/shell/AppPickerModel.h"
#include "app/shell/BrowserRow.h"
#include "app/shell/ProfileChoice.h"
#include "app/shell/ShellContext.h"

#include <QList>
#include <QObject>
#include <QQmlListProperty>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>
#include <optional>

namespace velmorin {

/// What the chosen profile allows, for its user to change. Every change is written at once; what is typed but not
/// added yet, and what checks have shown, is forgotten when another profile is chosen. Main thread.
class ProfileEditorModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to the page of profiles.")
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    /// The names of the allowed applications, in the order in which they were chosen.
    Q_PROPERTY(QList<QString> appNames READ appNames NOTIFY appsChanged)
    /// For each of them, what the button says that removes it.
    Q_PROPERTY(QList<QString> appRemovals READ appRemovals NOTIFY appsChanged)
    /// What would weaken the lock.
    Q_PROPERTY(QList<QString> warnings READ warnings NOTIFY appsChanged)
    Q_PROPERTY(QList<QString> sites READ sites NOTIFY sitesChanged)
    Q_PROPERTY(QList<QString> siteRemovals READ siteRemovals NOTIFY sitesChanged)
    /// What is being typed to be added to the sites.
    Q_PROPERTY(QString newDomain READ newDomain WRITE setNewDomain NOTIFY newDomainChanged)
    /// What is wrong with the sites; empty when nothing is.
    Q_PROPERTY(QString siteProblem READ siteProblem NOTIFY siteProblemChanged)
    /// Those of the allowed applications whose tabs can be read.
    Q_PROPERTY(QQmlListProperty<velmorin::BrowserRow> allowedBrowsers READ allowedBrowsers NOTIFY browsersChanged)
    Q_PROPERTY(bool hasBrowser READ hasBrowser NOTIFY browsersChanged)
    /// The sheet to choose applications from; null while it is closed.
    Q_PROPERTY(velmorin::AppPickerModel* picker READ picker NOTIFY pickerChanged)

public:
    /// Both must outlive this.
    ProfileEditorModel(ShellContext& context, ProfileChoice& choice, QObject* parent);

    QString name() const;
    void setName(const QString& name);
    QStringList appNames() const;
    QStringList appRemovals() const;
    QStringList warnings() const;
    QStringList sites() const;
    QStringList siteRemovals() const;
    QString newDomain() const { return m_newDomain; }
    void setNewDomain(const QString& text);
    QString siteProblem() const;
    QQmlListProperty<BrowserRow> allowedBrowsers() { return {this, &m_allowedBrowsers}; }
    bool hasBrowser() const { return !m_allowedBrowsers.isEmpty(); }
    AppPickerModel* picker() const { return m_picker; }

    Q_INVOKABLE void removeApp(int index);
    Q_INVOKABLE void removeSite(int index);
    /// Adds what was typed to the sites, as its bare domain, and empties the field; says so when it is no address.
    Q_INVOKABLE void addDomain();
    Q_INVOKABLE void openPicker();
    Q_INVOKABLE void closePicker();

    /// Shows what has changed: another profile, the profile itself, the language.
    void refresh();

Q_SIGNALS:
    void nameChanged();
    void appsChanged();
    void sitesChanged();
    void newDomainChanged();
    void siteProblemChanged();
    void browsersChanged();
    void pickerChanged();

private:
    /// The chosen profile; an empty one when there is none.
    const Profile& profile() const;
    void reset();
    void refreshBrowsers();
    QString removal(std::string_view item) const;
    void setDomainError(bool isError);

    ShellContext& m_context;
    ProfileChoice& m_choice;
    std::optional<UUID> m_shownID;
    QString m_newDomain;
    bool m_isDomainWrong = false;
    QList<BrowserRow*> m_browsers;
    QList<BrowserRow*> m_allowedBrowsers;
    AppPickerModel* m_picker = nullptr;
};

} // namespace velmorin
