#include "core/rules/Address.h"

#include "core/foundation/Text.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cstdint>
#include <curl/curl.h>
#include <memory>
#include <unicode/bytestream.h>
#include <unicode/idna.h>
#include <utility>

namespace velmorin {

namespace {

constexpr bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

constexpr bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isScheme(std::string_view text) {
    return !text.empty() && isLetter(text.front()) && std::ranges::all_of(text, [](char character) {
        return isLetter(character) || isDigit(character) || character == '+' || character == '-' || character == '.';
    });
}

/// What stands between "://" and the path.
std::string_view authorityOf(std::string_view afterScheme) {
    return afterScheme.substr(0, afterScheme.find_first_of("/?#"));
}

/// Browsers drop some of these characters and take others for a slash; other readers do neither.
bool hasDoubtfulCharacter(std::string_view authority) {
    return std::ranges::any_of(authority, [](char character) {
        const auto code = static_cast<unsigned char>(character);
        return code <= 0x20 || code == 0x7F || character == '\\';
    });
}

/// The host as it stands in an authority: without user and port.
std::string_view hostText(std::string_view authority) {
    authority.remove_prefix(authority.rfind('@') + 1); // none is the last place of all, and one more is the first
    const auto end = authority.starts_with('[') ? authority.find(']') : authority.rfind(':');
    if (end == std::string_view::npos) return authority;
    return authority.substr(0, authority.starts_with('[') ? end + 1 : end);
}

/// What the library takes for the host; absent when it refuses the authority.
std::optional<std::string> parsedHost(std::string_view authority) {
    const std::unique_ptr<CURLU, decltype(&curl_url_cleanup)> url{curl_url(), &curl_url_cleanup};
    const std::string text = "https://" + std::string{authority} + "/";
    if (!url || curl_url_set(url.get(), CURLUPART_URL, text.c_str(), 0) != CURLUE_OK) return std::nullopt;
    char* part = nullptr;
    if (curl_url_get(url.get(), CURLUPART_HOST, &part, 0) != CURLUE_OK) return std::nullopt;
    const std::unique_ptr<char, decltype(&curl_free)> host{part, &curl_free};
    return std::string{host.get()};
}

/// The ASCII form of an international name; absent for a name that the standard forbids.
std::optional<std::string> asciiName(std::string_view name) {
    static const std::unique_ptr<icu::IDNA> standard = [] {
        UErrorCode status = U_ZERO_ERROR;
        constexpr auto options = UIDNA_CHECK_BIDI | UIDNA_CHECK_CONTEXTJ | UIDNA_NONTRANSITIONAL_TO_ASCII;
        return std::unique_ptr<icu::IDNA>{icu::IDNA::createUTS46Instance(options, status)};
    }();
    if (!standard) return std::nullopt;
    std::string ascii;
    icu::StringByteSink<std::string> sink{&ascii};
    icu::IDNAInfo info;
    UErrorCode status = U_ZERO_ERROR;
    standard->nameToASCII_UTF8({name.data(), static_cast<std::int32_t>(name.size())}, sink, info, status);
    if (U_FAILURE(status) || info.hasErrors()) return std::nullopt;
    return ascii;
}

/// Whether the text is the canonical form of an IP address of the family.
bool isCanonicalIP(int family, const std::string& text) {
    std::array<std::uint8_t, sizeof(in6_addr)> address{};
    std::array<char, INET6_ADDRSTRLEN> canonical{};
    return inet_pton(family, text.c_str(), address.data()) == 1 &&
           inet_ntop(family, address.data(), canonical.data(), canonical.size()) != nullptr && text == canonical.data();
}

/// Browsers take a name whose last part is a number, in any of its forms, for an IPv4 address.
bool endsInNumber(std::string_view name) {
    if (name.ends_with('.')) name.remove_suffix(1);
    const auto last = name.substr(name.rfind('.') + 1);
    const bool isDecimal = !last.empty() && std::ranges::all_of(last, isDigit);
    return isDecimal || (last.starts_with("0x") && last.find_first_not_of("0123456789abcdef", 2) == last.npos);
}

bool isPlainName(std::string_view name) {
    const bool hasEmptyPart = name.empty() || name.starts_with('.') || name.find("..") != name.npos;
    return !hasEmptyPart && std::ranges::all_of(name, [](char character) {
        return isLetter(character) || isDigit(character) || character == '-' || character == '_' || character == '.';
    });
}

/// The schemes whose hosts browsers take for names of the internet.
bool hasInternationalNames(std::string_view scheme) {
    constexpr std::array<std::string_view, 6> schemes{"http", "https", "ws", "wss", "ftp", "file"};
    return std::ranges::find(schemes, scheme) != schemes.end();
}

/// A host that nobody reads in another way, in lower case.
std::optional<std::string> certainHost(std::string_view scheme, std::string_view typed) {
    if (typed.starts_with('[')) {
        std::string literal = lowercased(typed);
        const std::string inside = literal.substr(1, literal.size() - 2);
        const bool isCanonical = inside.find('.') == std::string::npos && isCanonicalIP(AF_INET6, inside);
        return isCanonical ? std::optional{std::move(literal)} : std::nullopt;
    }
    std::optional<std::string> name;
    if (isPlainName(typed)) {
        name = lowercased(typed);
    } else if (hasInternationalNames(scheme)) {
        name = asciiName(typed);
    }
    if (!name || !isPlainName(*name)) return std::nullopt;
    if (endsInNumber(*name) && !isCanonicalIP(AF_INET, *name)) return std::nullopt;
    return name;
}

} // namespace

std::optional<Address> Address::parse(std::string_view text) {
    const auto colon = text.find(':');
    if (colon == std::string_view::npos || !isScheme(text.substr(0, colon))) return std::nullopt;
    Address address;
    address.scheme = lowercased(text.substr(0, colon));
    if (!text.substr(colon).starts_with("://")) return address;

    const auto authority = authorityOf(text.substr(colon + 3));
    if (authority.empty() || hasDoubtfulCharacter(authority) || !isUTF8(authority)) return address;
    const auto typed = hostText(authority);
    // Two readings that differ leave the host in doubt.
    const auto parsed = parsedHost(authority);
    if (!parsed || lowercased(*parsed) != lowercased(typed)) return address;
    address.host = certainHost(address.scheme, typed);
    if (address.host) address.typedHost = lowercased(typed) == *address.host ? std::string{typed} : *address.host;
    return address;
}

} // namespace velmorin
