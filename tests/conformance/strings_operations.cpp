#include "app/engine/Watchdog.h"
#include "app/strings/AppStringsFields.h"
#include "app/strings/AppWarnings.h"
#include "core/language/QuoteCategory.h"
#include "core/language/QuoteDeck.h"
#include "tests/conformance/Operations.h"

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace velmorin::conformance {

namespace {

const AppStrings& stringsOf(const Request& request) {
    return AppStrings::of(request.get<AppLanguage>("language"));
}

std::vector<std::string> launchArguments(const Request& request) {
    return Watchdog::launchArguments(request.get<std::vector<std::string>>("extraArguments"));
}

/// Reads a list whose elements are of the given types, in their order.
template <class... Values>
std::tuple<Values...> readList(const Request& request, const char* argument) {
    std::tuple<Values...> values;
    const auto text = request.raw(argument);
    const bool isRead = JSONInput::read(text, [&values](JSONInput& input) {
        std::size_t count = 0;
        const bool isList = input.forEachElement([&](JSONInput& element) {
            const std::size_t index = count++;
            return [&]<std::size_t... Indices>(std::index_sequence<Indices...>) {
                bool result = false;
                (void)((Indices == index ? (result = decode(element, std::get<Indices>(values)), true) : false) || ...);
                return result;
            }
            (std::index_sequence_for<Values...>{});
        });
        return isList && count == sizeof...(Values);
    });
    if (!isRead) throw MalformedInput{"the argument \"" + std::string{argument} + "\" does not fit the field"};
    return values;
}

/// Texts are read as strings and passed as views of them.
template <class Argument>
using Owned = std::conditional_t<std::is_same_v<Argument, std::string_view>, std::string, Argument>;

template <class... Arguments>
std::string call(const AppStrings& strings, AppStringsFields::Function::Member<Arguments...> member,
                 const Request& request) {
    return std::apply(strings.*member, readList<Owned<Arguments>...>(request, "arguments"));
}

std::string callField(const Request& request) {
    const auto name = request.get<std::string>("field");
    for (const auto& field : AppStringsFields::functions) {
        if (field.name != name) continue;
        return std::visit([&](auto member) { return call(stringsOf(request), member, request); }, field.member);
    }
    throw MalformedInput{"the argument \"field\" names no function"};
}

void writeAll(JSONOutput& output, const AppStrings& strings) {
    output.beginObject();
    for (const auto& field : AppStringsFields::texts) {
        output.key(field.name);
        output.write(strings.*field.member);
    }
    output.endObject();
}

/// Answers the draws of a request one after another, from the start again when they are used up.
RandomDraw drawsOf(const Request& request) {
    return
        [draws = request.get<std::vector<std::int64_t>>("draws"), next = std::size_t{0}](std::uint64_t bound) mutable {
            if (draws.empty()) throw MalformedInput{"the argument \"draws\" is empty"};
            const auto draw = draws[next++ % draws.size()];
            if (draw < 0) throw MalformedInput{"the argument \"draws\" holds a negative number"};
            return static_cast<std::uint64_t>(draw) % bound;
        };
}

void addQuotes(Operations& operations) {
    operations["QuoteCategory.sentences"] = [](const Request& request, JSONOutput& output) {
        output.beginArray();
        for (const auto sentence :
             sentences(request.get<QuoteCategory>("category"), request.get<AppLanguage>("language"))) {
            output.write(sentence);
        }
        output.endArray();
    };
    operations["QuoteDeck.next"] = [](const Request& request, JSONOutput& output) {
        auto deck = request.get<QuoteDeck>("deck");
        const auto category = request.get<QuoteCategory>("category");
        const auto text = deck.next(category, request.get<AppLanguage>("language"), drawsOf(request));
        output.beginObject();
        output.key("text");
        output.write(text);
        output.key("index");
        output.write(deck.last.at(std::string{rawValue(category)}));
        output.key("deck");
        encode(output, deck);
        output.endObject();
    };
}

} // namespace

void addStringsOperations(Operations& operations) {
    addQuotes(operations);
    operations["AppStrings.all"] = [](const Request& request, JSONOutput& output) {
        writeAll(output, stringsOf(request));
    };
    operations["AppStrings.call"] = [](const Request& request, JSONOutput& output) {
        output.write(callField(request));
    };
    operations["AppWarnings"] = [](const Request& request, JSONOutput& output) {
        encode(output, appWarnings(request.get<Profile>("profile"), stringsOf(request)));
    };
    operations["Watchdog.shellLine"] = [](const Request& request, JSONOutput& output) {
        output.write(Watchdog::shellLine(request.get<std::string>("bundlePath"), launchArguments(request)));
    };
    operations["Watchdog.propertyList"] = [](const Request& request, JSONOutput& output) {
        writeOptional(output, Watchdog::propertyList(request.get<std::string>("bundlePath"), launchArguments(request)));
    };
}

} // namespace velmorin::conformance
