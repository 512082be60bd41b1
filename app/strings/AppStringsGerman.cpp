#include "app/strings/AppStrings.h"

namespace velmorin {

namespace {

/// The number and the word for one or for several.
std::string counted(std::int64_t count, const char* one, const char* several) {
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

std::string countedApps(std::int64_t count) {
    return counted(count, "App", "Apps");
}

/// A text before, one put in as it is, and a text after.
std::string around(std::string_view before, std::string_view text, std::string_view after) {
    return std::string{before}.append(text).append(after);
}

} // namespace

const AppStrings AppStrings::german{
    .appName = "Dravoni",
    .startSubtitle = "Worauf möchtest du dich heute konzentrieren?",
    .profilesSubtitle = "Lege für jede Art von Arbeit fest, welche Apps und Websites erlaubt sind.",
    .thoughtsSubtitle = "Gedanken, die dir bei der Arbeit kommen, sind hier gut aufgehoben, bis Zeit dafür ist.",
    .statsSubtitle = "Die Zeit, die du dir geschenkt hast.",
    .settingsSubtitle = "Das Aussehen der App und die Verbindung zu deinem Handy.",
    .modePomodoroDetail = "Kurze Runden mit Pausen",
    .modeDeepDetail = "Eine lange Sitzung mit voller Sperre",
    .tabStart = "Start",
    .tabProfiles = "Profile",
    .tabThoughts = "Gedanken",
    .tabStats = "Statistik",
    .tabSettings = "Einstellungen",
    .createProfileFirst = "Lege zuerst ein Profil an.",
    .startSession = "Sitzung starten",
    .appsStayOpen = "Offene Apps werden nicht beendet, nur ausgeblendet. Ungesicherte Arbeit bleibt so erhalten.",
    .goalHeading = "Ziel für diese Sitzung (optional)",
    .goalPlaceholder = "Was genau möchtest du zu Ende bringen?",
    .profileHeading = "Profil",
    .allowedInSession = "In dieser Sitzung erlaubt",
    .modeHeading = "Modus",
    .modePomodoro = "Pomodoro",
    .modeDeep = "Tiefe Sperre",
    .resetTimings = "Zeiten zurücksetzen",
    .resetTimingsHelp = "Setzt in diesem Profil die Zeiten für Pomodoro und tiefe Sperre auf Standard zurück. "
                        "Apps, Websites und alle anderen Einstellungen bleiben, wie sie sind.",
    .focusLength = "Fokus",
    .shortBreak = "Kurze Pause",
    .longBreak = "Lange Pause",
    .cycleCount = "Runden",
    .totalLength = "Gesamtdauer",
    .breakAfterEvery = "Pause nach jeweils",
    .breakLength = "Pausendauer",
    .sessionTotal = "Ganze Sitzung",
    .noApps = "Keine Apps",
    .appCount = [](std::int64_t apps) { return countedApps(apps); },
    .appAndSiteCount =
        [](std::int64_t apps, std::int64_t sites) {
            return countedApps(apps) + " und " + counted(sites, "Website", "Websites");
        },
    .stepLess = "weniger",
    .stepMore = "mehr",
    .thisSessionWork = "Deine Aufgabe in dieser Sitzung",
    .restWord = "Pause",
    .segmentAndTotal =
        [](std::string_view segment, std::string_view total) {
            return around("Dieser Teil: ", segment, ", ganze Sitzung: ").append(total);
        },
    .returnedSoFar =
        [](std::int64_t times) { return "Bisher " + std::to_string(times) + "-mal zur Arbeit zurückgekehrt."; },
    .endSession = "Sitzung beenden",
    .newThoughtPlaceholder = "Ein neuer Gedanke?",
    .save = "Sichern",
    .thoughtsHint = "In einer Sitzung über „Gedanke“ auf dem kleinen Feld oder überall auf dem Mac mit ⌃⌥T.",
    .thoughtsEmpty = "Noch nichts da. Hier sammeln sich Gedanken, die dir bei der Arbeit kommen.",
    .delete_ = "Löschen",
    .appearanceHeading = "Sprache und Farbe",
    .languageLabel = "Sprache",
    .colorThemeLabel = "Farbschema",
    .themeDusk = "Abendlicht",
    .themeDawn = "Morgenlicht",
    .themeAurora = "Polarlicht",
    .displayHeading = "Anzeige",
    .showBackdrop = "Während der Arbeit Sätze statt des Schreibtischs zeigen",
    .showFloatingTimer = "Während einer Sitzung die schwebende Uhr einblenden",
    .doNotDisturbHeading = "Nicht stören",
    .runShortcuts = "Zu Beginn und am Ende einer Sitzung einen Kurzbefehl ausführen",
    .shortcutStart = "Kurzbefehl zu Beginn",
    .shortcutEnd = "Kurzbefehl am Ende",
    .shortcutHelp = "Lege in der App „Kurzbefehle“ zwei Kurzbefehle mit diesen Namen an. "
                    "Einer schaltet den Fokus „Nicht stören“ ein, der andere schaltet ihn aus.",
    .phoneHeading = "Handy",
    .phoneConnect = "Handy verbinden",
    .phoneScanHint = "Öffne in der Dravoni-App auf deinem Handy die Einstellungen. "
                     "Tippe dort auf „Mit Mac verbinden“ und scanne diesen Code.",
    .phoneWaiting = "Warten auf das Handy…",
    .phoneCancelPairing = "Abbrechen",
    .phoneConnected = "Handy verbunden ✓",
    .phoneLockToo = "Handy mitsperren, wenn auf diesem Mac eine Sitzung beginnt",
    .phoneOneWayNote = "Die Verbindung wirkt nur in eine Richtung: Eine Sitzung am Handy sperrt den Mac nicht.",
    .phoneDisconnect = "Handy trennen",
    .phoneLocking = "Handy: wird gesperrt…",
    .phoneLockedNow = "Handy: gesperrt ✓",
    .phoneNoAnswer = "Handy: keine Antwort",
    .phoneReleased = "Handy: vorzeitig freigegeben",
    .phoneNeedsSetup =
        "Das Handy wurde nicht gesperrt: Aktiviere in seiner Dravoni-App unter „Mehr“ die Bedienungshilfen.",
    .phoneNoAnswerDetail =
        "Das Handy hat nicht geantwortet und ist vielleicht nicht gesperrt. Prüfe seine Internetverbindung.",
    .periodToday = "Heute",
    .periodWeek = "7 Tage",
    .periodMonth = "30 Tage",
    .periodAll = "Gesamt",
    .clearStats = "Statistik löschen",
    .focusTime = "Fokuszeit",
    .sessionsWord = "Sitzungen",
    .completedRoundsLabel = "Volle Runden",
    .roundsAmount = [](std::int64_t rounds) { return counted(rounds, "volle Runde", "volle Runden"); },
    .timesReturned = "Mal zurückgekehrt",
    .noSessionsYet = "Noch keine Sitzungen aufgezeichnet.",
    .noSessionsInRange = "Keine Sitzungen in diesem Zeitraum.",
    .focusByProject = "Fokuszeit nach Projekt",
    .dayByDay = "Tag für Tag",
    .clearStatsQuestion = "Gesamte Statistik löschen?",
    .clearStatsDetail = "Alle aufgezeichneten Sitzungen werden entfernt. Deine Gedanken und Profile bleiben erhalten. "
                        "Du kannst die Statistik wiederherstellen, bis du sie das nächste Mal löschst.",
    .clearStatsConfirm = "Ja, löschen",
    .cancel = "Abbrechen",
    .statsWereCleared = "Deine bisherige Statistik wurde gelöscht.",
    .restoreStats = "Statistik wiederherstellen",
    .focusedAmount = [](std::string_view time) { return around("", time, " Fokus"); },
    .returnsAmount = [](std::int64_t returns) { return std::to_string(returns) + "-mal zurück"; },
    .listSeparator = ", ",
    .sessionsHeading = "Sitzungen",
    .endedEarly = [](std::string_view reason) { return around("Früher beendet: ", reason, ""); },
    .projectHelp =
        [](std::string_view name, std::string_view time, std::int64_t sessions) {
            return around(name, ": ", time) + ", " + counted(sessions, "Sitzung", "Sitzungen");
        },
    .chartDay = "Tag",
    .chartFrom = "Von",
    .chartTo = "Bis",
    .chartProject = "Projekt",
    .noSessionThisDay = "Keine Sitzungen",
    .dayTotal = [](std::string_view time) { return around("Summe: ", time, ""); },
    .otherProjects = "Andere",
    .newProfile = "Neues Profil",
    .deleteProfile = "Dieses Profil löschen",
    .nameLabel = "Name",
    .profileNamePlaceholder = "Profilname",
    .noAppsChosen = "Keine Apps ausgewählt. Das passt zum Lernen mit Buch oder Papier.",
    .removeItem = [](std::string_view item) { return around("", item, " entfernen"); },
    .chooseApps = "Apps auswählen…",
    .allowedApps = "Erlaubte Apps",
    .add = "Hinzufügen",
    .badDomain = "Diese Adresse ist nicht gültig. Schreib sie wie example.org.",
    .domainsNote = "Auch Subdomains sind erlaubt. Andere Websites werden in Chrome und Safari geschlossen.",
    .browserWithoutSites = "Ein Browser ist erlaubt, aber keine Website; so öffnen sich nur leere Seiten.",
    .allowedSites = "Erlaubte Websites",
    .browserPermissionNote = "Um Website-Adressen zu sehen, braucht Dravoni einmal deine Erlaubnis. Ohne sie ist der "
                             "Browser während einer Sitzung gesperrt.",
    .checkPermission = [](std::string_view browser) { return around("", browser, "-Erlaubnis prüfen"); },
    .browserPermission = "Browser-Erlaubnis",
    .escapeHatchWarning = [](std::string_view app) { return around("Mit „", app, "“ lässt sich die Sperre umgehen."); },
    .unsupportedBrowserWarning =
        [](std::string_view browser) {
            return around("Websites in „", browser,
                          "“ werden nicht kontrolliert; nur Chrome und Safari werden unterstützt.");
        },
    .permissionChecking = "Wird geprüft… Wenn dein Mac fragt, klicke auf „OK“.",
    .permissionGranted = "Erlaubnis erteilt ✓",
    .permissionDenied = "Abgelehnt. Aktiviere sie unter Systemeinstellungen › Datenschutz › Automation.",
    .permissionNoAnswer = "Keine Antwort. Öffne den Browser und versuche es noch einmal.",
    .searchApps = "Apps suchen",
    .done = "Fertig",
    .thoughtBoxPrompt = "Ein Gedanke? Schreib ihn hier auf",
    .clockLabel = "Uhrzeit",
    .remainingInSession = "Rest der Sitzung",
    .writeThought = "Gedanke",
    .writeThoughtHelp = "Schreib jeden Gedanken auf, der dir kommt. Das geht auch mit ⌃⌥T, überall auf deinem Mac.",
    .floatingEndSession = "Beenden",
    .clockAt = [](std::string_view time) { return around("", time, " Uhr"); },
    .timeLeft = [](std::string_view time) { return around("noch ", time, ""); },
    .breakLeft = [](std::string_view time) { return around("Pause: ", time, ""); },
    .quickThoughtPlaceholder = "Schreib den Gedanken auf und drücke die Eingabetaste",
    .thoughtFieldPrompt = "Ein Gedanke? Lass ihn hier und komm in der Pause auf ihn zurück.",
    .thoughtFieldExample = "Zum Beispiel: einem Freund schreiben",
    .saved = "Gesichert",
    .breathing = "Ein langsamer Atemzug…",
    .backToWork = "Zurück zur Arbeit",
    .canWait = [](std::string_view target) { return around("„", target, "“ kann jetzt warten."); },
    .endQuestion = "Möchtest du die Sitzung beenden?",
    .whyEnd = "Warum muss die Sitzung jetzt enden?",
    .reasonPlaceholder = "Schreib ein paar Worte für dich selbst",
    .stayAndContinue = "Ich bleibe und mache weiter",
    .endAvailableIn = [](std::string_view time) { return around("Beenden ist in ", time, " möglich"); },
    .reasonTooShort = "Schreib deinen Grund etwas ausführlicher, um zu beenden",
    .breakTime = "Zeit für eine Pause",
    .restLeft = [](std::string_view time) { return around("", time, " Pause"); },
    .keptThoughts = "Deine notierten Gedanken",
    .backEarly = "Früher zurück zur Arbeit",
    .thisRoundWork = "Deine Aufgabe in dieser Runde",
    .startNow = "Fangen wir an",
    .timesReturnedToWork = "Mal zurückgekehrt",
    .thoughtsKept = "Notierte Gedanken",
    .menuOpen = "Dravoni öffnen",
    .menuWriteThought = "Gedanken aufschreiben (⌃⌥T)",
    .menuHideTimer = "Schwebende Uhr ausblenden",
    .menuShowTimer = "Schwebende Uhr einblenden",
    .menuEndSession = "Sitzung beenden…",
    .menuQuit = "Beenden",
    .menuQuitApp = "Dravoni beenden",
    .menuEdit = "Bearbeiten",
    .menuUndo = "Widerrufen",
    .menuCut = "Ausschneiden",
    .menuCopy = "Kopieren",
    .menuPaste = "Einsetzen",
    .menuSelectAll = "Alles auswählen",
    .menuWindow = "Fenster",
    .menuClose = "Schließen",
    .thisApp = "Diese App",
    .noAutomation = [](std::string_view browser) { return around("", browser, " (ohne Automation-Erlaubnis)"); },
};

} // namespace velmorin
