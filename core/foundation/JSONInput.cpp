#include "core/foundation/JSONInput.h"

#include "core/foundation/JSONNumber.h"

#include <cstring>
#include <optional>
#include <simdjson.h>

namespace velmorin {

namespace ondemand = simdjson::ondemand;

struct JSONInput::Parsed {
    ondemand::value value;
};

namespace {

constexpr std::string_view whiteSpace = " \t\n\r";

bool isContainer(std::string_view text) {
    const auto start = text.find_first_not_of(whiteSpace);
    return start != std::string_view::npos && (text[start] == '{' || text[start] == '[');
}

std::string_view withoutTrailingSpace(std::string_view text) {
    return text.substr(0, text.find_last_not_of(whiteSpace) + 1);
}

/// The characters of a value that has no parts, or the bracket that starts one that has.
std::string_view token(ondemand::value& value) {
    return withoutTrailingSpace(value.raw_json_token());
}

/// A text without escapes, as nearly all are, taken as it stands; absent for one that has them. The parser has already
/// found that the text ends, is UTF-8 and holds no control characters.
std::optional<std::string_view> plainText(const char* afterQuote) {
    const char* const end = std::strchr(afterQuote, '"');
    if (end == nullptr) return std::nullopt;
    const std::string_view text{afterQuote, static_cast<std::size_t>(end - afterQuote)};
    if (text.find('\\') != std::string_view::npos) return std::nullopt;
    return text;
}

/// A text that was taken as it stands has to be passed over all the same: the parser takes one that nobody asked for,
/// with a colon behind it, for a key.
bool isConsumed(ondemand::value& text) {
    return text.get_raw_json_string().error() == simdjson::SUCCESS;
}

std::optional<JSONNumber> parsedNumber(JSONInput& input, ondemand::value& value) {
    if (input.kind() != JSONInput::Kind::number) return std::nullopt;
    return JSONNumber::parse(token(value));
}

/// The parser stops after the value; what follows must be nothing.
bool isAtEnd(ondemand::document& document) {
    return document.current_location().error() == simdjson::OUT_OF_BOUNDS;
}

} // namespace

bool JSONInput::readText(std::string& text, ValueVisitor visit) {
    // The parser hands out a value on its own only where it is an array or an object. Any other text is read as the
    // only element of an array, which is the same language.
    const bool isWrapped = !isContainer(text);
    if (isWrapped) text = "[" + text + "]";
    text.reserve(text.size() + simdjson::SIMDJSON_PADDING);

    ondemand::parser parser;
    ondemand::document document;
    Parsed root;
    if (parser.iterate(simdjson::padded_string_view{text, text.capacity()}).get(document)) return false;
    if (document.get_value().get(root.value)) return false;

    JSONInput input{root, 0};
    if (!isWrapped) return visit(input) && isAtEnd(document);

    std::size_t count = 0;
    const bool isRead = input.forEachElement([&](JSONInput& value) { return count++ == 0 && visit(value); });
    return isRead && count == 1 && isAtEnd(document);
}

// The parser holds that a value is asked only for what it is, so each operation looks at its kind first.

JSONInput::Kind JSONInput::kind() {
    ondemand::json_type type{};
    // A character that starts no value counts as null, which then turns out malformed when it is passed over.
    if (m_parsed.value.type().get(type)) return Kind::null;
    switch (type) {
    case ondemand::json_type::array: return Kind::array;
    case ondemand::json_type::object: return Kind::object;
    case ondemand::json_type::number: return Kind::number;
    case ondemand::json_type::string: return Kind::string;
    case ondemand::json_type::boolean: return Kind::boolean;
    case ondemand::json_type::null: break;
    }
    return Kind::null;
}

bool JSONInput::read(bool& value) {
    return kind() == Kind::boolean && !m_parsed.value.get_bool().get(value);
}

// Numbers are read from their text: the parser does not round every one of them exactly.

bool JSONInput::read(std::int64_t& value) {
    const auto number = parsedNumber(*this, m_parsed.value);
    return number && number->read(value);
}

bool JSONInput::read(double& value) {
    const auto number = parsedNumber(*this, m_parsed.value);
    return number && number->read(value);
}

bool JSONInput::read(std::string& value) {
    if (kind() != Kind::string) return false;
    if (const auto plain = plainText(token(m_parsed.value).data() + 1)) {
        value.assign(*plain);
        return isConsumed(m_parsed.value);
    }
    std::string_view text;
    if (m_parsed.value.get_string().get(text)) return false;
    value.assign(text);
    return true;
}

bool JSONInput::readRaw(std::string& json) {
    const std::string_view first = token(m_parsed.value);
    const auto kindOfValue = kind();
    if (!skip()) return false;
    const char* end = first.data() + first.size();
    const bool hasParts = kindOfValue == Kind::array || kindOfValue == Kind::object;
    if (hasParts && m_parsed.value.current_location().get(end)) return false;
    json = withoutTrailingSpace({first.data(), static_cast<std::size_t>(end - first.data())});
    return true;
}

bool JSONInput::skip() {
    switch (kind()) {
    case Kind::null: {
        bool isNull = false;
        return !m_parsed.value.is_null().get(isNull) && isNull;
    }
    case Kind::boolean: {
        bool value = false;
        return read(value);
    }
    // Not read as a double: a number that is too large for one is passed over like any other.
    case Kind::number: return parsedNumber(*this, m_parsed.value).has_value();
    case Kind::string: {
        std::string_view value;
        return !m_parsed.value.get_string().get(value);
    }
    case Kind::array: return forEachElement([](JSONInput& element) { return element.skip(); });
    case Kind::object: return forEachMember([](std::string_view, JSONInput& member) { return member.skip(); });
    }
    return false;
}

bool JSONInput::visitMembers(MemberVisitor visit) {
    if (m_depth >= maximumDepth) return false;
    ondemand::object object;
    if (m_parsed.value.get_object().get(object)) return false;
    for (auto field : object) {
        std::string_view key;
        Parsed parsed;
        ondemand::raw_json_string rawKey;
        if (field.key().get(rawKey)) return false;
        const auto plain = plainText(rawKey.raw());
        if (!plain && field.unescaped_key().get(key)) return false;
        if (plain) key = *plain;
        if (field.value().get(parsed.value)) return false;
        JSONInput member{parsed, m_depth + 1};
        if (!visit(key, member)) return false;
    }
    return true;
}

bool JSONInput::visitElements(ValueVisitor visit) {
    if (m_depth >= maximumDepth) return false;
    ondemand::array array;
    if (m_parsed.value.get_array().get(array)) return false;
    for (auto element : array) {
        Parsed parsed;
        if (element.get(parsed.value)) return false;
        JSONInput input{parsed, m_depth + 1};
        if (!visit(input)) return false;
    }
    return true;
}

} // namespace velmorin
