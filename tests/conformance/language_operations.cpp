#include "core/foundation/Calendar.h"
#include "core/language/ClockHands.h"
#include "core/language/Formatting.h"
#include "core/language/Persian.h"
#include "tests/conformance/Operations.h"

#include <string>

namespace velmorin {

// Never stored; here it is described for the answer.
constexpr auto fields(std::type_identity<ClockHands>) {
    return std::tuple{field("hourDegrees", &ClockHands::hourDegrees),
                      field("minuteDegrees", &ClockHands::minuteDegrees)};
}

namespace conformance {

namespace {

/// An operation on a length of time in a language.
Operation onSeconds(std::string (*format)(AppLanguage, double)) {
    return [format](const Request& request, JSONOutput& output) {
        output.write(format(request.get<AppLanguage>("language"), request.get<double>("seconds")));
    };
}

/// An operation on a moment in a language and a zone.
Operation onDate(std::string (*format)(AppLanguage, Date, const Calendar&)) {
    return [format](const Request& request, JSONOutput& output) {
        output.write(format(request.get<AppLanguage>("language"), request.get<Date>("date"), calendarOf(request)));
    };
}

} // namespace

void addLanguageOperations(Operations& operations) {
    operations["AppLanguage.number"] = [](const Request& request, JSONOutput& output) {
        output.write(number(request.get<AppLanguage>("language"), request.get<std::int64_t>("value")));
    };
    operations["AppLanguage.duration"] = onSeconds(&duration);
    operations["AppLanguage.compactRemaining"] = onSeconds(&compactRemaining);
    operations["AppLanguage.timeOfDay"] = onDate(&timeOfDay);
    operations["AppLanguage.shortDate"] = onDate(&shortDate);
    operations["Persian.digits"] = [](const Request& request, JSONOutput& output) {
        output.write(Persian::digits(request.get<std::string>("text")));
    };
    operations["Persian.clock"] = [](const Request& request, JSONOutput& output) {
        output.write(Persian::clock(request.get<double>("seconds")));
    };
    operations["ClockHands.init"] = [](const Request& request, JSONOutput& output) {
        encode(output, ClockHands{request.get<Date>("date"), calendarOf(request)});
    };
}

} // namespace conformance

} // namespace velmorin
