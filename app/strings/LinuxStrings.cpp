#include "app/strings/LinuxStrings.h"

namespace velmorin::LinuxStrings {

namespace {

AppStrings makeEnglish() {
    AppStrings strings = AppStrings::english;
    strings.thoughtsHint = "During a session, use “Write a thought” on the small panel, or press Ctrl+Alt+T anywhere.";
    strings.runShortcuts = "Run a program when a session starts and ends";
    strings.shortcutStart = "Program at the start";
    strings.shortcutEnd = "Program at the end";
    strings.shortcutHelp = "“Velmorin On” and “Velmorin Off” turn your desktop's Do Not Disturb on and off. "
                           "Any other name runs the program of that name in the folder “shortcuts” of Dravoni's data.";
    strings.phoneLockToo = "Also lock the phone when a session starts on this computer";
    strings.phoneOneWayNote = "This link is one-way: a session you start on the phone doesn't lock the computer.";
    strings.permissionChecking = "Checking…";
    strings.permissionDenied = "Not readable yet. Add the Dravoni extension to this browser.";
    strings.writeThoughtHelp = "Write down any thought that comes up. Ctrl+Alt+T also opens this from anywhere.";
    strings.menuWriteThought = "Write a thought (Ctrl+Alt+T)";
    strings.noAutomation = [](std::string_view browser) { return std::string{browser} + " (can't be read)"; };
    return strings;
}

AppStrings makeGerman() {
    AppStrings strings = AppStrings::german;
    strings.thoughtsHint = "In einer Sitzung über „Gedanke“ auf dem kleinen Feld oder überall mit Strg+Alt+T.";
    strings.runShortcuts = "Zu Beginn und am Ende einer Sitzung ein Programm ausführen";
    strings.shortcutStart = "Programm zu Beginn";
    strings.shortcutEnd = "Programm am Ende";
    strings.shortcutHelp = "„Velmorin On“ und „Velmorin Off“ schalten „Nicht stören“ auf deinem Desktop ein und aus. "
                           "Jeder andere Name startet das Programm dieses Namens im Ordner „shortcuts“ bei den Daten "
                           "von Dravoni.";
    strings.phoneLockToo = "Handy mitsperren, wenn auf diesem Rechner eine Sitzung beginnt";
    strings.phoneOneWayNote =
        "Die Verbindung wirkt nur in eine Richtung: Eine Sitzung am Handy sperrt den Rechner nicht.";
    strings.permissionChecking = "Wird geprüft…";
    strings.permissionDenied = "Noch nicht lesbar. Füge diesem Browser die Dravoni-Erweiterung hinzu.";
    strings.writeThoughtHelp = "Schreib jeden Gedanken auf, der dir kommt. Das geht auch überall mit Strg+Alt+T.";
    strings.menuWriteThought = "Gedanken aufschreiben (Strg+Alt+T)";
    strings.noAutomation = [](std::string_view browser) { return std::string{browser} + " (nicht lesbar)"; };
    return strings;
}

AppStrings makePersian() {
    AppStrings strings = AppStrings::persian;
    strings.thoughtsHint = "در جلسه از دکمه‌ی «نوشتن فکر» روی پنل کوچک، "
                           "یا از هر جا با کلیدهای Ctrl+Alt+T.";
    strings.runShortcuts = "اجرای یک برنامه هنگام شروع و پایان جلسه";
    strings.shortcutStart = "برنامه‌ی شروع";
    strings.shortcutEnd = "برنامه‌ی پایان";
    strings.shortcutHelp = "نام‌های «Velmorin On» و «Velmorin Off» "
                           "حالت Do Not Disturb میزکار را "
                           "روشن و خاموش می‌کنند. "
                           "هر نام دیگری، برنامه‌ای با همان نام را "
                           "از پوشه‌ی «shortcuts» در داده‌های Dravoni "
                           "اجرا می‌کند.";
    strings.phoneLockToo = "با شروع جلسه روی این رایانه، گوشی هم قفل شود";
    strings.phoneOneWayNote = "این اتصال یک‌طرفه است: "
                              "جلسه‌ای که روی گوشی شروع کنی، "
                              "رایانه را قفل نمی‌کند.";
    strings.permissionChecking = "در حال بررسی…";
    strings.permissionDenied =
        "هنوز خوانده نمی‌شود. افزونه‌ی Dravoni را به این مرورگر اضافه "
        "کن.";
    strings.writeThoughtHelp = "هر فکری به ذهنت رسید، اینجا بنویس. "
                               "Ctrl+Alt+T هم از هر جا همین را باز می‌کند.";
    strings.menuWriteThought = "نوشتن فکر (Ctrl+Alt+T)";
    strings.noAutomation = [](std::string_view browser) {
        return std::string{browser} + " (خوانده نمی‌شود)";
    };
    return strings;
}

} // namespace

const AppStrings& of(AppLanguage language) {
    static const AppStrings persian = makePersian();
    static const AppStrings english = makeEnglish();
    static const AppStrings german = makeGerman();
    switch (language) {
    case AppLanguage::persian: return persian;
    case AppLanguage::english: return english;
    case AppLanguage::german: break;
    }
    return german;
}

std::string_view thoughtKeys(AppLanguage language) {
    return language == AppLanguage::german ? "Strg+Alt+T" : "Ctrl+Alt+T";
}

} // namespace velmorin::LinuxStrings
