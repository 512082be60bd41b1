#pragma once

#include "app/seams/Cancellable.h"
#include "app/strings/Appearance.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

/// The names of the plain texts of AppStrings, each given to X. "delete" is called `remove` on the screens.
// clang-format off
#define VELMORIN_TEXTS(X) \
    X(appName) X(startSubtitle) X(profilesSubtitle) X(thoughtsSubtitle) X(statsSubtitle) X(settingsSubtitle) \
    X(modePomodoroDetail) X(modeDeepDetail) X(tabStart) X(tabProfiles) X(tabThoughts) X(tabStats) \
    X(tabSettings) X(createProfileFirst) X(startSession) X(appsStayOpen) X(goalHeading) X(goalPlaceholder) \
    X(profileHeading) X(allowedInSession) X(modeHeading) X(modePomodoro) X(modeDeep) X(resetTimings) \
    X(resetTimingsHelp) X(focusLength) X(shortBreak) X(longBreak) X(cycleCount) X(totalLength) \
    X(breakAfterEvery) X(breakLength) X(sessionTotal) X(noApps) X(stepLess) X(stepMore) X(thisSessionWork) \
    X(restWord) X(endSession) X(newThoughtPlaceholder) X(save) X(thoughtsHint) X(thoughtsEmpty) \
    X(appearanceHeading) X(languageLabel) X(colorThemeLabel) X(themeDusk) X(themeDawn) X(themeAurora) \
    X(displayHeading) X(showBackdrop) X(showFloatingTimer) X(doNotDisturbHeading) X(runShortcuts) \
    X(shortcutStart) X(shortcutEnd) X(shortcutHelp) X(phoneHeading) X(phoneConnect) X(phoneScanHint) \
    X(phoneWaiting) X(phoneCancelPairing) X(phoneConnected) X(phoneLockToo) X(phoneOneWayNote) \
    X(phoneDisconnect) X(phoneLocking) X(phoneLockedNow) X(phoneNoAnswer) X(phoneReleased) X(phoneNeedsSetup) \
    X(phoneNoAnswerDetail) X(periodToday) X(periodWeek) X(periodMonth) X(periodAll) X(clearStats) X(focusTime) \
    X(sessionsWord) X(completedRoundsLabel) X(timesReturned) X(noSessionsYet) X(noSessionsInRange) \
    X(focusByProject) X(dayByDay) X(clearStatsQuestion) X(clearStatsDetail) X(clearStatsConfirm) X(cancel) \
    X(statsWereCleared) X(restoreStats) X(listSeparator) X(sessionsHeading) X(chartDay) X(chartFrom) X(chartTo) \
    X(chartProject) X(noSessionThisDay) X(otherProjects) X(newProfile) X(deleteProfile) X(nameLabel) \
    X(profileNamePlaceholder) X(noAppsChosen) X(chooseApps) X(allowedApps) X(add) X(badDomain) X(domainsNote) \
    X(browserWithoutSites) X(allowedSites) X(browserPermissionNote) X(browserPermission) X(permissionChecking) \
    X(permissionGranted) X(permissionDenied) X(permissionNoAnswer) X(searchApps) X(done) X(thoughtBoxPrompt) \
    X(clockLabel) X(remainingInSession) X(writeThought) X(writeThoughtHelp) X(floatingEndSession) \
    X(quickThoughtPlaceholder) X(thoughtFieldPrompt) X(thoughtFieldExample) X(saved) X(breathing) X(backToWork) \
    X(endQuestion) X(whyEnd) X(reasonPlaceholder) X(stayAndContinue) X(reasonTooShort) X(breakTime) \
    X(keptThoughts) X(backEarly) X(thisRoundWork) X(startNow) X(timesReturnedToWork) X(thoughtsKept) \
    X(menuOpen) X(menuWriteThought) X(menuHideTimer) X(menuShowTimer) X(menuEndSession) X(menuQuit) \
    X(menuQuitApp) X(menuEdit) X(menuUndo) X(menuCut) X(menuCopy) X(menuPaste) X(menuSelectAll) X(menuWindow) \
    X(menuClose) X(thisApp)
// clang-format on

#define VELMORIN_TEXT_PROPERTY(name)                                                                                   \
    Q_PROPERTY(QString name READ name NOTIFY changed)                                                                  \
public:                                                                                                                \
    QString name() const;

namespace velmorin {

/// Every plain text of AppStrings in the language of the screens, by its name. What needs a number or a name comes from
/// the view models. Main thread.
class Texts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    VELMORIN_TEXTS(VELMORIN_TEXT_PROPERTY)
    Q_PROPERTY(QString remove READ remove NOTIFY changed)
    /// Whether the language is written from right to left.
    Q_PROPERTY(bool isRightToLeft READ isRightToLeft NOTIFY changed)

public:
    explicit Texts(Appearance& appearance = Appearance::shared(), QObject* parent = nullptr);
    static Texts* create(QQmlEngine*, QJSEngine*) { return new Texts; }

    QString remove() const;
    bool isRightToLeft() const;

Q_SIGNALS:
    /// The language has changed, and every text with it.
    void changed();

private:
    Appearance& m_appearance;
    Cancellable m_language;
};

} // namespace velmorin

#undef VELMORIN_TEXT_PROPERTY
