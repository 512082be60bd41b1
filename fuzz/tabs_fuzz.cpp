// Whatever a browser prints, each tab is a piece of it, and no window identifier can leave the script's quotes.

#include "core/rules/BrowserScripts.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmorin;
    const std::string output{data, data + size};
    const auto quotes = [](const std::string& script) { return std::count(script.begin(), script.end(), '"'); };
    const auto lines = [](const std::string& script) { return std::count(script.begin(), script.end(), '\n'); };
    for (const auto& tab : BrowserScripts::parseTabs(output)) {
        if (output.find(tab.windowID + "|||" + tab.url) == std::string::npos) std::abort();
        if (tab.windowID.find("|||") != std::string::npos) std::abort();
        const auto script = BrowserScripts::blankTab(BrowserKind::chrome, tab.windowID);
        if (quotes(script) != 6 || lines(script) != 6) std::abort();
    }
    return 0;
}
