// Whatever a browser, a client or a host sends: what was read can be written and read again, and no address becomes two
// lines.

#include "app/platform/linux/browsers/BrowserReply.h"
#include "app/platform/linux/browsers/HostRequest.h"
#include "app/platform/linux/browsers/HostSocket.h"
#include "app/platform/linux/browsers/MessageFrames.h"
#include "app/platform/linux/browsers/ScriptCommand.h"
#include "core/rules/BrowserScripts.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace velmorin {
namespace {

void demand(bool holds) {
    if (!holds) std::abort();
}

void checkTab(const ShownTab& tab) {
    const auto line = HostAnswer::line(tab);
    demand(line.find('\n') == line.size() - 1);
    const auto read = HostAnswer::parseTab(std::string_view{line}.substr(0, line.size() - 1));
    demand(read && read->place == tab.place && read->address == safeInLine(tab.address));
    const auto tabs = BrowserScripts::parseTabs(WindowID{1, tab.place}.text() + "|||" + read->address + "\n");
    demand(tabs.size() == 1 && WindowID::parse(tabs[0].windowID) == WindowID{1, tab.place});
}

void checkFrames(const std::string& bytes) {
    MessageFrames frames;
    if (!frames.append(bytes)) return;
    while (auto message = frames.take()) {
        if (const auto reply = BrowserReply::parse(*message)) {
            for (const auto& tab : reply->tabs)
                checkTab(tab);
        }
    }
}

} // namespace
} // namespace velmorin

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmorin;
    const std::string text{data, data + size};
    checkFrames(text);
    // A frame around it saves the fuzzer from finding the length.
    if (const auto frame = framed(text)) checkFrames(*frame);
    if (const auto request = HostRequest::parse(text)) demand(request->line() == text + '\n');
    if (const auto tab = HostAnswer::parseTab(text)) checkTab(*tab);
    if (const auto id = WindowID::parse(text)) demand(id->text() == text);
    if (const auto name = HostSocketName::parse(text)) demand(HostSocketName::parse(name->text()) == name);
    checkTab({{1, 0}, text});
    (void)parseScript(text);
    return 0;
}
