#pragma once

#include "core/language/AppLanguage.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velmorin {

/// Every text on screen but the sentences, one constant instance per language. A text that needs a number or a name is
/// a function, so that the order of words stays with its language; a text among the arguments comes formatted for the
/// language and is put in as it is. Constants; any thread.
struct AppStrings {
    std::string_view appName;
    std::string_view startSubtitle;
    std::string_view profilesSubtitle;
    std::string_view thoughtsSubtitle;
    std::string_view statsSubtitle;
    std::string_view settingsSubtitle;
    std::string_view modePomodoroDetail;
    std::string_view modeDeepDetail;
    std::string_view tabStart;
    std::string_view tabProfiles;
    std::string_view tabThoughts;
    std::string_view tabStats;
    std::string_view tabSettings;
    std::string_view createProfileFirst;
    std::string_view startSession;
    std::string_view appsStayOpen;
    std::string_view goalHeading;
    std::string_view goalPlaceholder;
    std::string_view profileHeading;
    std::string_view allowedInSession;
    std::string_view modeHeading;
    std::string_view modePomodoro;
    std::string_view modeDeep;
    std::string_view resetTimings;
    std::string_view resetTimingsHelp;
    std::string_view focusLength;
    std::string_view shortBreak;
    std::string_view longBreak;
    std::string_view cycleCount;
    std::string_view totalLength;
    std::string_view breakAfterEvery;
    std::string_view breakLength;
    std::string_view sessionTotal;
    std::string_view noApps;
    std::string (*appCount)(std::int64_t apps);
    std::string (*appAndSiteCount)(std::int64_t apps, std::int64_t sites);
    std::string_view stepLess;
    std::string_view stepMore;
    std::string_view thisSessionWork;
    std::string_view restWord;
    std::string (*segmentAndTotal)(std::string_view segment, std::string_view total);
    std::string (*returnedSoFar)(std::int64_t times);
    std::string_view endSession;
    std::string_view newThoughtPlaceholder;
    std::string_view save;
    std::string_view thoughtsHint;
    std::string_view thoughtsEmpty;
    std::string_view delete_; ///< "delete" is a word of the programming language
    std::string_view appearanceHeading;
    std::string_view languageLabel;
    std::string_view colorThemeLabel;
    std::string_view themeDusk;
    std::string_view themeDawn;
    std::string_view themeAurora;
    std::string_view displayHeading;
    std::string_view showBackdrop;
    std::string_view showFloatingTimer;
    std::string_view doNotDisturbHeading;
    std::string_view runShortcuts;
    std::string_view shortcutStart;
    std::string_view shortcutEnd;
    std::string_view shortcutHelp;
    std::string_view phoneHeading;
    std::string_view phoneConnect;
    std::string_view phoneScanHint;
    std::string_view phoneWaiting;
    std::string_view phoneCancelPairing;
    std::string_view phoneConnected;
    std::string_view phoneLockToo;
    std::string_view phoneOneWayNote;
    std::string_view phoneDisconnect;
    std::string_view phoneLocking;
    std::string_view phoneLockedNow;
    std::string_view phoneNoAnswer;
    std::string_view phoneReleased;
    std::string_view phoneNeedsSetup;
    std::string_view phoneNoAnswerDetail;
    std::string_view periodToday;
    std::string_view periodWeek;
    std::string_view periodMonth;
    std::string_view periodAll;
    std::string_view clearStats;
    std::string_view focusTime;
    std::string_view sessionsWord;
    std::string_view completedRoundsLabel;
    std::string (*roundsAmount)(std::int64_t rounds);
    std::string_view timesReturned;
    std::string_view noSessionsYet;
    std::string_view noSessionsInRange;
    std::string_view focusByProject;
    std::string_view dayByDay;
    std::string_view clearStatsQuestion;
    std::string_view clearStatsDetail;
    std::string_view clearStatsConfirm;
    std::string_view cancel;
    std::string_view statsWereCleared;
    std::string_view restoreStats;
    std::string (*focusedAmount)(std::string_view time);
    std::string (*returnsAmount)(std::int64_t returns);
    std::string_view listSeparator;
    std::string_view sessionsHeading;
    std::string (*endedEarly)(std::string_view reason);
    std::string (*projectHelp)(std::string_view name, std::string_view time, std::int64_t sessions);
    std::string_view chartDay;
    std::string_view chartFrom;
    std::string_view chartTo;
    std::string_view chartProject;
    std::string_view noSessionThisDay;
    std::string (*dayTotal)(std::string_view time);
    std::string_view otherProjects;
    std::string_view newProfile;
    std::string_view deleteProfile;
    std::string_view nameLabel;
    std::string_view profileNamePlaceholder;
    std::string_view noAppsChosen;
    std::string (*removeItem)(std::string_view item);
    std::string_view chooseApps;
    std::string_view allowedApps;
    std::string_view add;
    std::string_view badDomain;
    std::string_view domainsNote;
    std::string_view browserWithoutSites;
    std::string_view allowedSites;
    std::string_view browserPermissionNote;
    std::string (*checkPermission)(std::string_view browser);
    std::string_view browserPermission;
    std::string (*escapeHatchWarning)(std::string_view app);
    std::string (*unsupportedBrowserWarning)(std::string_view browser);
    std::string_view permissionChecking;
    std::string_view permissionGranted;
    std::string_view permissionDenied;
    std::string_view permissionNoAnswer;
    std::string_view searchApps;
    std::string_view done;
    std::string_view thoughtBoxPrompt;
    std::string_view clockLabel;
    std::string_view remainingInSession;
    std::string_view writeThought;
    std::string_view writeThoughtHelp;
    std::string_view floatingEndSession;
    std::string (*clockAt)(std::string_view time);
    std::string (*timeLeft)(std::string_view time);
    std::string (*breakLeft)(std::string_view time);
    std::string_view quickThoughtPlaceholder;
    std::string_view thoughtFieldPrompt;
    std::string_view thoughtFieldExample;
    std::string_view saved;
    std::string_view breathing;
    std::string_view backToWork;
    std::string (*canWait)(std::string_view target);
    std::string_view endQuestion;
    std::string_view whyEnd;
    std::string_view reasonPlaceholder;
    std::string_view stayAndContinue;
    std::string (*endAvailableIn)(std::string_view time);
    std::string_view reasonTooShort;
    std::string_view breakTime;
    std::string (*restLeft)(std::string_view time);
    std::string_view keptThoughts;
    std::string_view backEarly;
    std::string_view thisRoundWork;
    std::string_view startNow;
    std::string_view timesReturnedToWork;
    std::string_view thoughtsKept;
    std::string_view menuOpen;
    std::string_view menuWriteThought;
    std::string_view menuHideTimer;
    std::string_view menuShowTimer;
    std::string_view menuEndSession;
    std::string_view menuQuit;
    std::string_view menuQuitApp;
    std::string_view menuEdit;
    std::string_view menuUndo;
    std::string_view menuCut;
    std::string_view menuCopy;
    std::string_view menuPaste;
    std::string_view menuSelectAll;
    std::string_view menuWindow;
    std::string_view menuClose;
    std::string_view thisApp;
    std::string (*noAutomation)(std::string_view browser);

    static const AppStrings persian;
    static const AppStrings english;
    static const AppStrings german;

    /// The instance of a language.
    static const AppStrings& of(AppLanguage language);
};

} // namespace velmorin
