// Whatever is typed or reported: what `normalize` gives is stable and allowed by itself, and no address of another host
// passes.

#include "core/rules/Address.h"
#include "core/rules/DomainPolicy.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmorin;
    const std::string text{data, data + size};
    const std::vector<std::string> allowed{"example.org"};
    if (DomainPolicy::isAllowed(text, allowed)) {
        const auto address = Address::parse(text);
        const bool isOfTheDomain =
            address && address->host && (address->host == "example.org" || address->host->ends_with(".example.org"));
        // The neutral pages and empty texts pass as well, but none of these names the domain.
        if (!isOfTheDomain && text.find("example.org") != std::string::npos && address && address->host) std::abort();
    }
    // One "www." is dropped and no more, so that a second one would be dropped the next time.
    if (const auto domain = DomainPolicy::normalize(text); domain && !domain->starts_with("www.")) {
        if (DomainPolicy::normalize(*domain) != domain) std::abort();
        if (!DomainPolicy::isAllowed("https://" + *domain + "/", std::vector{*domain})) std::abort();
    }
    if (DomainPolicy::displayName(text).size() > text.size() * 8 + 8) std::abort();
    return 0;
}
