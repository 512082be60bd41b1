#include "app/gallery/PictureTexts.h"

namespace velmorin {

const PictureTexts& pictureTexts(AppLanguage language) {
    static const PictureTexts persian{
        "نوشتن فصل سوم پایان‌نامه",
        "نوشتن پیش‌نویس فصل سوم پایان‌نامه درباره‌ی روش پژوهش، مرتب "
        "کردن "
        "فهرست "
        "منابع "
        "در "
        "Zotero، "
        "کشیدن دو نمودار تازه از داده‌های نظرسنجی سال ۱۴۰۳، خواندن "
        "دوباره‌ی "
        "یادداشت‌های "
        "استاد "
        "راهنما "
        "و پاسخ دادن به تک‌تک آن‌ها، و در پایان فرستادن نسخه‌ی کامل برای خانم رضایی "
        "پیش "
        "از "
        "ساعت "
        "پنج "
        "بعدازظهر، "
        "تا فردا بتوانم با خیال آسوده کار را از فصل چهارم ادامه بدهم.",
        "باید همین حالا به بیمارستان بروم",
        {"پیام دادن به مریم درباره‌ی سفر", "خریدن نان و پنیر در راه خانه",
         "ببینم چرا build روی سرور شکسته", "تمدید کتاب‌های کتابخانه",
         "زنگ زدن به دندان‌پزشک", "ایده: خلاصه‌ی فصل دوم برای وبلاگ",
         "پرداخت قبض برق تا پنج‌شنبه"},
    };
    static const PictureTexts english{
        "Write chapter three of the thesis",
        "Write the draft of chapter three on the method of the study, sort the list of references in Zotero, draw two "
        "new charts from the data of last year's survey, read my adviser's notes once more and answer every one of "
        "them, and at the end send the whole version to Mrs Rezaei (رضایی) before five in the afternoon.",
        "I have to go to the hospital now",
        {"Message Maryam about the trip", "Buy bread and cheese on the way home", "See why the build broke",
         "Renew the library books", "Call the dentist", "Idea: chapter two as a post, in short",
         "Pay the power bill by Thursday"},
    };
    static const PictureTexts german{
        "Kapitel drei der Arbeit schreiben",
        "Den Entwurf des dritten Kapitels über die Methode der Untersuchung schreiben, das Literaturverzeichnis in "
        "Zotero ordnen, zwei neue Diagramme aus den Umfragedaten des letzten Jahres zeichnen, die Anmerkungen der "
        "Betreuerin noch einmal lesen und beantworten und alles vor fünf Uhr nachmittags verschicken.",
        "Ich muss jetzt ins Krankenhaus",
        {"Maryam wegen der Reise schreiben", "Auf dem Heimweg Brot und Käse kaufen",
         "Nachsehen, warum der Build kaputt ist", "Bücher der Bibliothek verlängern", "Beim Zahnarzt anrufen",
         "Idee: Kapitel zwei als Beitrag", "Stromrechnung bis Donnerstag bezahlen"},
    };
    switch (language) {
    case AppLanguage::persian: return persian;
    case AppLanguage::english: return english;
    case AppLanguage::german: return german;
    }
    return english;
}

} // namespace velmorin
