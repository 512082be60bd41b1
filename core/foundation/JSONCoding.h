#pragma once

#include "core/foundation/Bytes.h"
#include "core/foundation/Date.h"
#include "core/foundation/Fields.h"
#include "core/foundation/JSONInput.h"
#include "core/foundation/JSONOutput.h"
#include "core/foundation/RawValue.h"
#include "core/foundation/UUID.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

/// One encoder and one strict decoder for all stored types, for any thread. A value is a boolean, a 64-bit integer, a
/// double, a text, a date (its seconds since 2001), a UUID (its text), bytes (base64), an enumeration with raw values
/// (its text), a list, a map from texts, or a type that describes its fields.
namespace velmorin {

template <class Value>
void encode(JSONOutput& output, const Value& value);
template <class Value>
bool decode(JSONInput& input, Value& value);

namespace coding {

template <class Type>
inline constexpr bool isVector = false;
template <class Element>
inline constexpr bool isVector<std::vector<Element>> = true;

template <class Type>
inline constexpr bool isTextMap = false;
template <class Element>
inline constexpr bool isTextMap<std::map<std::string, Element>> = true;

template <Described Owner>
inline constexpr std::size_t fieldCount = std::tuple_size_v<decltype(fields(std::type_identity<Owner>{}))>;

/// Calls `use(field)` with the field at `index`, which is known only at run time; false for an index that is none.
template <Described Owner, class Use>
bool withField(std::size_t index, Use&& use) {
    constexpr auto description = fields(std::type_identity<Owner>{});
    return [&]<std::size_t... Indices>(std::index_sequence<Indices...>) {
        bool result = false;
        (void)((Indices == index ? (result = use(std::get<Indices>(description)), true) : false) || ...);
        return result;
    }
    (std::make_index_sequence<fieldCount<Owner>>{});
}

/// The index of the field with this key, tried first at `guess`, where members in their usual order are found at
/// once; `fieldCount` when there is none.
template <Described Owner>
std::size_t findField(std::string_view key, std::size_t guess) {
    constexpr auto keys =
        std::apply([](const auto&... field) { return std::array<std::string_view, sizeof...(field)>{field.key...}; },
                   fields(std::type_identity<Owner>{}));
    if (guess < keys.size() && keys[guess] == key) return guess;
    return static_cast<std::size_t>(std::find(keys.begin(), keys.end(), key) - keys.begin());
}

template <Described Owner>
std::bitset<fieldCount<Owner>> requiredFields() {
    std::bitset<fieldCount<Owner>> required;
    std::size_t index = 0;
    std::apply([&](const auto&... field) { ((required[index++] = field.presence == Presence::required), ...); },
               fields(std::type_identity<Owner>{}));
    return required;
}

/// Keeps the default where the value is anything but the text of a case; false only for malformed text.
template <RawRepresentable Enum>
bool decodeTolerantly(JSONInput& input, Enum& value) {
    if (input.kind() != JSONInput::Kind::string) return input.skip();
    std::string text;
    if (!input.read(text)) return false;
    value = fromRawValue<Enum>(text).value_or(value);
    return true;
}

template <class Owner, class Member>
bool decodeField(JSONInput& input, Owner& owner, const Field<Owner, Member>& field) {
    Member& member = owner.*field.member;
    if constexpr (RawRepresentable<Member>) {
        if (field.presence == Presence::tolerant) return decodeTolerantly(input, member);
    }
    if (field.presence == Presence::defaulted && input.kind() == JSONInput::Kind::null) return input.skip();
    if constexpr (isOptional<Member>) {
        return decode(input, member.emplace());
    } else {
        return decode(input, member);
    }
}

/// Unknown keys are passed over. A repeated key leaves open which value is meant, so it fails the object.
template <Described Owner>
bool decodeObject(JSONInput& input, Owner& owner) {
    std::bitset<fieldCount<Owner>> seen;
    std::size_t guess = 0;
    const bool isRead = input.forEachMember([&](std::string_view key, JSONInput& value) {
        const std::size_t index = findField<Owner>(key, guess);
        if (index == fieldCount<Owner>) return value.skip();
        if (seen[index]) return false;
        seen.set(index);
        guess = index + 1;
        return withField<Owner>(index, [&](const auto& field) { return decodeField(value, owner, field); });
    });
    const auto missing = requiredFields<Owner>() & ~seen;
    return isRead && missing.none();
}

template <Described Owner>
void encodeObject(JSONOutput& output, const Owner& owner) {
    const auto encodeField = [&](const auto& field) {
        const auto& member = owner.*field.member;
        if constexpr (isOptional<std::remove_cvref_t<decltype(member)>>) {
            if (!member) return;
            output.key(field.key);
            encode(output, *member);
        } else {
            output.key(field.key);
            encode(output, member);
        }
    };
    output.beginObject();
    std::apply([&](const auto&... field) { (encodeField(field), ...); }, fields(std::type_identity<Owner>{}));
    output.endObject();
}

/// Reads a text and makes it a value through `parse`, which answers an optional.
template <class Value, class Parse>
bool decodeText(JSONInput& input, Value& value, Parse parse) {
    std::string text;
    if (!input.read(text)) return false;
    const std::optional<Value> parsed = parse(text);
    if (parsed) value = *parsed;
    return parsed.has_value();
}

} // namespace coding

template <class Value>
void encode(JSONOutput& output, const Value& value) {
    if constexpr (Described<Value>) {
        coding::encodeObject(output, value);
    } else if constexpr (RawRepresentable<Value>) {
        output.write(rawValue(value));
    } else if constexpr (std::is_same_v<Value, Date>) {
        output.write(value.secondsSince2001);
    } else if constexpr (std::is_same_v<Value, UUID>) {
        output.write(value.text());
    } else if constexpr (std::is_same_v<Value, Bytes>) {
        output.write(base64(value));
    } else if constexpr (coding::isVector<Value>) {
        output.beginArray();
        for (const auto& element : value)
            encode(output, element);
        output.endArray();
    } else if constexpr (coding::isTextMap<Value>) {
        output.beginObject();
        for (const auto& [key, element] : value) {
            output.key(key);
            encode(output, element);
        }
        output.endObject();
    } else {
        output.write(value);
    }
}

/// False when the text is malformed or the value is not of this type; `value` is then half read.
template <class Value>
bool decode(JSONInput& input, Value& value) {
    if constexpr (Described<Value>) {
        return coding::decodeObject(input, value);
    } else if constexpr (RawRepresentable<Value>) {
        return coding::decodeText(input, value, [](const auto& text) { return fromRawValue<Value>(text); });
    } else if constexpr (std::is_same_v<Value, Date>) {
        return input.read(value.secondsSince2001);
    } else if constexpr (std::is_same_v<Value, UUID>) {
        return coding::decodeText(input, value, [](const auto& text) { return UUID::parse(text); });
    } else if constexpr (std::is_same_v<Value, Bytes>) {
        return coding::decodeText(input, value, [](const auto& text) { return bytesFromBase64(text); });
    } else if constexpr (coding::isVector<Value>) {
        value.clear();
        return input.forEachElement([&](JSONInput& element) { return decode(element, value.emplace_back()); });
    } else if constexpr (coding::isTextMap<Value>) {
        value.clear();
        return input.forEachMember([&](std::string_view key, JSONInput& element) {
            const auto [place, isNew] = value.try_emplace(std::string{key});
            return isNew && decode(element, place->second);
        });
    } else {
        return input.read(value);
    }
}

/// The text of a value. Absent when it holds a number that is infinite or none, or a text that is not UTF-8.
template <class Value>
std::optional<std::string> encodeJSON(const Value& value) {
    JSONOutput output;
    encode(output, value);
    return output.take();
}

/// The value of a whole text; absent unless the text is one well-formed value of this type.
template <class Value>
std::optional<Value> decodeJSON(std::string text) {
    std::optional<Value> value{std::in_place};
    if (!JSONInput::read(std::move(text), [&](JSONInput& input) { return decode(input, *value); })) return std::nullopt;
    return value;
}

} // namespace velmorin
