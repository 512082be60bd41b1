#include "core/rules/AppPolicy.h"

#include <algorithm>

namespace velmorin {

bool AppPolicy::isAllowed(std::optional<std::string_view> bundleID) const {
    if (onlyBlock) return !bundleID || !onlyBlock->contains(*bundleID);
    if (!bundleID) return false;
    return bundleID == selfBundleID || isSystemExempt(*bundleID) || allowed.contains(*bundleID);
}

bool AppPolicy::isSystemExempt(std::string_view bundleID) {
    return std::ranges::find(systemExempt, bundleID) != systemExempt.end();
}

} // namespace velmorin
