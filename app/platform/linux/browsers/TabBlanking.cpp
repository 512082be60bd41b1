#include "app/platform/linux/browsers/TabBlanking.h"

#include "app/platform/linux/browsers/HostConversation.h"

#include <algorithm>
#include <poll.h>
#include <string>

namespace velmorin {

namespace {

constexpr int pauseBetweenTries = 20; // milliseconds

ScriptOutcome waitForEnd(HostConversation conversation, const RuntimeFolder& folder) {
    for (conversation.start(folder); !conversation.isOver(); conversation.start(folder)) {
        pollfd polled{conversation.number(), POLLIN, 0};
        const bool isConnected = conversation.state() == HostConversation::State::waiting;
        ::poll(&polled, 1, isConnected ? -1 : pauseBetweenTries);
        conversation.proceed();
    }
    if (conversation.state() == HostConversation::State::answered) return {};
    const auto reason = conversation.error().empty() ? "the browser has left" : conversation.error();
    return {1, "", reason + '\n'};
}

} // namespace

ScriptOutcome blankTab(const KnownBrowser& browser, const RuntimeFolder& folder, std::string_view windowID) {
    const auto window = WindowID::parse(windowID);
    if (!window) return {};
    const auto names = hostSockets(folder);
    const auto name = std::ranges::find_if(names, [&](const HostSocketName& each) {
        return each.host == window->host && each.identity == browser.identity;
    });
    if (name == names.end()) return {};
    return waitForEnd(HostConversation{*name, HostRequest{window->place}}, folder);
}

} // namespace velmorin
