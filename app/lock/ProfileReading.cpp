#include "app/lock/ProfileReading.h"

#include "core/foundation/JSONArguments.h"
#include "core/rules/DomainPolicy.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace velmorin {

namespace {

template <class Value>
std::vector<std::string> membersOf(const Value& value) {
    return JSONArguments{encodeJSON(value).value_or("{}")}.keys();
}

void requireKnown(const JSONArguments& object, const std::vector<std::string>& known, const std::string& where) {
    for (const auto& key : object.keys()) {
        if (std::ranges::find(known, key) != known.end()) continue;
        std::string complaint = "there is no member \"";
        complaint.append(key).append("\" in ").append(where);
        throw MalformedInput{complaint};
    }
}

/// Each member by itself, so that what is wrong can be named.
template <class Value>
void require(const JSONArguments& object, const std::string& name) {
    object.find<Value>(name);
}

} // namespace

Profile readProfile(const std::string& json, const std::string& name) {
    const JSONArguments object{json};
    const Profile base{name, SessionMode::pomodoro};
    requireKnown(object, membersOf(base), "a profile");
    require<std::string>(object, "name");
    require<SessionMode>(object, "mode");
    require<std::vector<AllowedApp>>(object, "allowedApps");
    require<std::vector<std::string>>(object, "allowedDomains");
    if (object.hasValue("pomodoro")) requireKnown(object.object("pomodoro"), membersOf(base.pomodoro), "\"pomodoro\"");
    if (object.hasValue("deep")) requireKnown(object.object("deep"), membersOf(base.deep), "\"deep\"");
    auto profile = readOver(base, json, "profile");
    for (auto& domain : profile.allowedDomains) {
        const auto normalized = DomainPolicy::normalize(domain);
        if (!normalized) throw MalformedInput{"\"" + domain + "\" is not a site"};
        domain = *normalized;
    }
    return profile;
}

} // namespace velmorin
