#include "app/strings/PlatformStrings.h"

namespace velmorin {

namespace {

/// A text before, one put in as it is, and a text after.
std::string around(std::string_view before, std::string_view text, std::string_view after) {
    return std::string{before}.append(text).append(after);
}

/// A text that is written from left to right, to be put among words of a language that is not.
std::string isolated(std::string_view text) {
    return around("\u2066", text, "\u2069");
}

} // namespace

// The formatter counts the bytes of letters, and never comes to an end with Persian ones.
// clang-format off
const PlatformStrings PlatformStrings::persian{
    .setUpBrowser = [](std::string_view browser) { return around("آماده‌سازی ", browser, ""); },
    .openPage =
        [](std::string_view address) {
            return around("", isolated(address), " را در نوار آدرس مرورگر جای‌گذاری کن. آدرس از پیش کپی شده است.");
        },
    .switchOnDeveloperMode = "بالای صفحه «حالت برنامه‌نویس» را روشن کن و روشن بگذار.",
    .loadFolder =
        [](std::string_view folder) {
            return around("«بار کردن غیرفشرده» را بزن و این پوشه را انتخاب کن: ", isolated(folder), "");
        },
    .allowInPrivateWindows = "در «جزئیات» همین افزونه، «در حالت ناشناس مجاز است» را روشن کن.",
    .checkAfterwards = "بعد به همین‌جا برگرد و مجوز را بررسی کن.",
    .copyAddress = "کپی آدرس",
    .copyFolder = "کپی مسیر پوشه",
    .notIntroduced = "معرفی Dravoni به مرورگرها انجام نشد. ببین پوشه‌ی خانگی‌ات جا دارد و می‌شود در آن نوشت.",
};

const PlatformStrings PlatformStrings::english{
    .setUpBrowser = [](std::string_view browser) { return around("Set up ", browser, ""); },
    .openPage =
        [](std::string_view address) {
            return around("Paste ", address, " into the browser's address bar. It's already copied.");
        },
    .switchOnDeveloperMode = "Turn on “Developer mode” at the top of the page, and leave it on.",
    .loadFolder =
        [](std::string_view folder) { return around("Click “Load unpacked” and choose this folder: ", folder, ""); },
    .allowInPrivateWindows = "Open the extension's “Details” and turn on “Allow in Incognito”.",
    .checkAfterwards = "Come back here and check the permission.",
    .copyAddress = "Copy address",
    .copyFolder = "Copy folder path",
    .notIntroduced = "Your browsers couldn't be told about Dravoni. Check that your home folder has room and can be "
                     "written to.",
};

const PlatformStrings PlatformStrings::german{
    .setUpBrowser = [](std::string_view browser) { return around("", browser, " einrichten"); },
    .openPage =
        [](std::string_view address) {
            return around("Setze ", address, " in die Adresszeile des Browsers ein. Die Adresse ist schon kopiert.");
        },
    .switchOnDeveloperMode = "Schalte oben auf der Seite den „Entwicklermodus“ ein und lass ihn eingeschaltet.",
    .loadFolder =
        [](std::string_view folder) {
            return around("Klicke auf „Entpackte Erweiterung laden“ und wähle diesen Ordner: ", folder, "");
        },
    .allowInPrivateWindows = "Öffne „Details“ der Erweiterung und schalte „Im Inkognitomodus zulassen“ ein.",
    .checkAfterwards = "Komm hierher zurück und prüfe die Erlaubnis.",
    .copyAddress = "Adresse kopieren",
    .copyFolder = "Ordnerpfad kopieren",
    .notIntroduced = "Dravoni konnte sich deinen Browsern nicht bekannt machen. Prüfe, ob in deinem persönlichen Ordner "
                     "Platz ist und ob du darin schreiben darfst.",
};

const PlatformStrings& PlatformStrings::of(AppLanguage language) {
    switch (language) {
    case AppLanguage::persian: return persian;
    case AppLanguage::english: return english;
    case AppLanguage::german: break;
    }
    return german;
}

} // namespace velmorin
