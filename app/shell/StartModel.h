#pragma once

#include "app/shell/ProfileChoice.h"
#include "app/shell/ShellContext.h"
#include "app/shell/TimeRow.h"

#include <QList>
#include <QObject>
#include <QQmlListProperty>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>
#include <vector>

namespace velmorin {

/// The page on which a session is prepared and begun. What is changed here is written into the chosen profile at once.
/// Main thread.
class StartModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the main window.")
    /// Whether there is a profile to start with.
    Q_PROPERTY(bool hasProfile READ hasProfile NOTIFY changed)
    Q_PROPERTY(QList<QString> profileNames READ profileNames NOTIFY profileNamesChanged)
    /// The place of the chosen profile; -1 without profiles.
    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY changed)
    /// What the user says the session is for.
    Q_PROPERTY(QString intent READ intent WRITE setIntent NOTIFY intentChanged)
    /// How much the chosen profile allows.
    Q_PROPERTY(QString allowedSummary READ allowedSummary NOTIFY changed)
    /// The sliders of the chosen profile's mode.
    Q_PROPERTY(QQmlListProperty<velmorin::TimeRow> timeRows READ timeRows NOTIFY modeChanged)
    Q_PROPERTY(QList<QString> modeNames READ modeNames NOTIFY languageChanged)
    /// The chosen profile's mode, a place in `modeNames`.
    Q_PROPERTY(int mode READ mode WRITE setMode NOTIFY modeChanged)
    Q_PROPERTY(QString modeDetail READ modeDetail NOTIFY changed)
    /// The length of the whole session, in the short form.
    Q_PROPERTY(QString totalText READ totalText NOTIFY changed)
    /// The same in words.
    Q_PROPERTY(QString totalInWords READ totalInWords NOTIFY changed)
    /// How much of the session is work, from 0 to 1.
    Q_PROPERTY(qreal workFraction READ workFraction NOTIFY changed)

public:
    /// The context must outlive this.
    explicit StartModel(ShellContext& context, QObject* parent = nullptr);

    bool hasProfile() const { return m_choice.profile() != nullptr; }
    QStringList profileNames() const { return m_choice.names(); }
    int selectedIndex() const { return m_choice.place(); }
    QString intent() const { return m_intent; }
    void setIntent(const QString& intent);
    QString allowedSummary() const;
    QQmlListProperty<TimeRow> timeRows() { return {this, &m_shownRows}; }
    QStringList modeNames() const;
    int mode() const;
    void setMode(int mode);
    QString modeDetail() const;
    QString totalText() const;
    QString totalInWords() const;
    qreal workFraction() const;

    Q_INVOKABLE void select(int index);
    /// Sets the timings of both modes of the chosen profile back to the defaults.
    Q_INVOKABLE void resetTimings();
    /// Starts a session of the chosen profile, and forgets what it was for.
    Q_INVOKABLE void startSession();

Q_SIGNALS:
    void changed();
    void modeChanged();
    void intentChanged();
    void languageChanged();
    void profileNamesChanged();

private:
    void refresh();
    bool isDeep() const;
    std::vector<Segment> plan() const;

    ShellContext& m_context;
    ProfileChoice m_choice;
    QString m_intent;
    QStringList m_names; ///< as they were last told
    int m_mode = -1;     ///< likewise
    QList<TimeRow*> m_rows;
    QList<TimeRow*> m_shownRows; ///< those of the mode
    std::vector<Cancellable> m_watches;
};

/// How much a profile allows, in words.
std::string allowedSummary(const Profile& profile, const AppStrings& strings);

} // namespace velmorin
