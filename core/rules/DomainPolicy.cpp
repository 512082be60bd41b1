#include "core/rules/DomainPolicy.h"

#include "core/foundation/Text.h"
#include "core/rules/Address.h"

#include <algorithm>
#include <array>

namespace velmorin::DomainPolicy {

namespace {

/// What a browser shows when it shows nothing.
constexpr std::array<std::string_view, 6> neutralPages{
    "about:blank", "about:newtab", "chrome://newtab/", "chrome://new-tab-page/", "favorites://", "topsites://",
};

std::string_view withoutWWW(std::string_view host) {
    if (host.starts_with("www.")) host.remove_prefix(4);
    return host;
}

bool hasDot(std::string_view host) {
    return host.find('.') != std::string_view::npos;
}

bool isAtOrBelow(std::string_view host, std::string_view domain) {
    if (!host.ends_with(domain)) return false;
    const auto rest = host.substr(0, host.size() - domain.size());
    return rest.empty() || rest.ends_with('.');
}

} // namespace

std::optional<std::string> normalize(std::string_view text) {
    std::string typed = lowercased(trimmed(text));
    if (typed.empty()) return std::nullopt;
    if (typed.find("://") == std::string::npos) typed.insert(0, "https://");
    const auto address = Address::parse(typed);
    if (!address || !address->host || !hasDot(*address->host)) return std::nullopt;
    const auto domain = withoutWWW(*address->host);
    if (!hasDot(domain)) return std::nullopt;
    return std::string{domain};
}

bool isAllowed(std::string_view url, std::span<const std::string> allowedDomains) {
    const auto text = trimmed(url);
    if (text.empty() || std::ranges::find(neutralPages, lowercased(text)) != neutralPages.end()) return true;
    const auto address = Address::parse(text);
    if (!address || !address->host) return false;
    if (address->scheme != "http" && address->scheme != "https") return false;
    const auto host = withoutWWW(*address->host);
    return std::ranges::any_of(allowedDomains, [host](const auto& domain) { return isAtOrBelow(host, domain); });
}

std::string displayName(std::string_view url) {
    const auto address = Address::parse(url);
    if (!address || !address->host) return std::string{url};
    return std::string{withoutWWW(address->typedHost)};
}

} // namespace velmorin::DomainPolicy
