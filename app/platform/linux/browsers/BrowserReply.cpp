#include "app/platform/linux/browsers/BrowserReply.h"

#include "core/foundation/JSONInput.h"

#include <string_view>
#include <utility>

namespace velmorin {

namespace {

bool readTab(JSONInput& input, ShownTab& tab) {
    bool hasWindow = false;
    bool hasAddress = false;
    if (input.kind() != JSONInput::Kind::object) return false;
    const bool isRead = input.forEachMember([&](std::string_view key, JSONInput& value) {
        if (key == "window") return hasWindow = value.read(tab.place.window);
        if (key == "place") return value.read(tab.place.place);
        if (key == "url") return hasAddress = value.read(tab.address);
        return value.skip();
    });
    return isRead && hasWindow && hasAddress && tab.place.isValid();
}

bool readTabs(JSONInput& input, std::vector<ShownTab>& tabs) {
    if (input.kind() != JSONInput::Kind::array) return false;
    return input.forEachElement([&](JSONInput& element) { return readTab(element, tabs.emplace_back()); });
}

bool readReply(JSONInput& input, BrowserReply& reply) {
    bool hasID = false;
    if (input.kind() != JSONInput::Kind::object) return false;
    const bool isRead = input.forEachMember([&](std::string_view key, JSONInput& value) {
        if (key == "id") return hasID = value.read(reply.id);
        if (key == "tabs") return readTabs(value, reply.tabs);
        if (key == "error") return value.read(reply.error.emplace());
        return value.skip();
    });
    return isRead && hasID;
}

} // namespace

std::optional<BrowserReply> BrowserReply::parse(std::string message) {
    BrowserReply reply;
    const bool isRead = JSONInput::read(std::move(message), [&](JSONInput& input) { return readReply(input, reply); });
    return isRead ? std::optional{std::move(reply)} : std::nullopt;
}

} // namespace velmorin
