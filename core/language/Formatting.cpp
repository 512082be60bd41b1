#include "core/language/Formatting.h"

#include "core/language/Persian.h"
#include "core/language/TimeText.h"

namespace velmorin {

namespace {

TimeText::Labels latinLabels(AppLanguage language) {
    if (language == AppLanguage::german) return {.hours = "Std.", .minutes = "Min.", .between = " "};
    return {.hours = "hr", .minutes = "min", .between = " "};
}

} // namespace

std::string number(AppLanguage language, std::int64_t value) {
    return language == AppLanguage::persian ? Persian::number(value) : std::to_string(value);
}

std::string duration(AppLanguage language, double seconds) {
    if (language == AppLanguage::persian) return Persian::duration(seconds);
    return TimeText::duration(seconds, latinLabels(language));
}

std::string compactRemaining(AppLanguage language, double seconds) {
    if (language == AppLanguage::persian) return Persian::compactRemaining(seconds);
    return TimeText::compactRemaining(seconds, latinLabels(language));
}

std::string timeOfDay(AppLanguage language, Date date, const Calendar& calendar) {
    if (language == AppLanguage::persian) return Persian::timeOfDay(date, calendar);
    return TimeText::timeOfDay(date, calendar);
}

std::string shortDate(AppLanguage language, Date date, const Calendar& timeZone) {
    switch (language) {
    case AppLanguage::persian: return Persian::shortDate(date, timeZone);
    case AppLanguage::english: return TimeText::shortDate(date, timeZone, TimeText::DayFormat::english);
    case AppLanguage::german: break;
    }
    return TimeText::shortDate(date, timeZone, TimeText::DayFormat::german);
}

} // namespace velmorin
