#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

/// Which sites pass. A domain is a host in lower case with at least one dot and no leading "www.", as `normalize`
/// gives it. Pure; any thread.
namespace velmorin::DomainPolicy {

/// The domain in what the user typed, be it a bare name or a whole address; absent when it holds none.
std::optional<std::string> normalize(std::string_view text);

/// Whether a tab may show an address: the blank and the new page always, a page of the web when its host is one of the
/// domains or below one, nothing else. An empty address, which is one that cannot be told, passes.
bool isAllowed(std::string_view url, std::span<const std::string> allowedDomains);

/// The short form of an address for people: its host as it is written, without "www."; the text itself where it has
/// none.
std::string displayName(std::string_view url);

} // namespace velmorin::DomainPolicy
