#include "app/platform/linux/browsers/ScriptCommand.h"

#include <utility>

namespace velmorin {

namespace {

/// A script being read from its start.
class Reading {
public:
    explicit Reading(std::string_view script) : m_rest{script} {}

    /// Each of the following is false, and so is all that follows, where the script goes on differently.
    bool take(std::string_view text) {
        if (!m_rest.starts_with(text)) return false;
        m_rest.remove_prefix(text.size());
        return true;
    }
    bool takeUntilQuote(std::string_view& text) {
        const auto length = m_rest.find('"');
        if (length == std::string_view::npos) return false;
        text = m_rest.substr(0, length);
        m_rest.remove_prefix(length);
        return true;
    }
    /// How a browser calls the tab that a window shows.
    bool takeTab() { return take("active tab") || take("current tab"); }
    bool isAtEnd() const { return m_rest.empty(); }

private:
    std::string_view m_rest;
};

std::optional<std::string_view> listedBrowser(std::string_view script) {
    std::string_view identity;
    Reading reading{script};
    const bool isList = reading.take("set sep to \"|||\"\n"
                                     "set nl to linefeed\n"
                                     "tell application id \"") &&
                        reading.takeUntilQuote(identity) &&
                        reading.take("\"\n"
                                     "    set out to \"\"\n"
                                     "    repeat with w in windows\n"
                                     "        try\n"
                                     "            set out to out & (id of w as text) & sep & (URL of ") &&
                        reading.takeTab() &&
                        reading.take(" of w) & nl\n"
                                     "        end try\n"
                                     "    end repeat\n"
                                     "    return out\n"
                                     "end tell") &&
                        reading.isAtEnd();
    return isList ? std::optional{identity} : std::nullopt;
}

struct Blanking {
    std::string_view identity;
    std::string_view window;
};

std::optional<Blanking> blanking(std::string_view script) {
    Blanking found;
    Reading reading{script};
    const bool isBlanking = reading.take("tell application id \"") && reading.takeUntilQuote(found.identity) &&
                            reading.take("\"\n"
                                         "    repeat with w in windows\n"
                                         "        if (id of w as text) is \"") &&
                            reading.takeUntilQuote(found.window) &&
                            reading.take("\" then\n"
                                         "            set URL of ") &&
                            reading.takeTab() &&
                            reading.take(" of w to \"about:blank\"\n"
                                         "        end if\n"
                                         "    end repeat\n"
                                         "end tell") &&
                            reading.isAtEnd();
    return isBlanking ? std::optional{found} : std::nullopt;
}

} // namespace

std::optional<ScriptCommand> parseScript(std::string_view script) {
    std::string_view identity;
    std::optional<std::string> window;
    if (const auto listed = listedBrowser(script)) {
        identity = *listed;
    } else if (const auto blanked = blanking(script)) {
        identity = blanked->identity;
        window = std::string{blanked->window};
    }
    const auto* const browser = browserWithIdentity(identity);
    if (browser == nullptr) return std::nullopt;
    return ScriptCommand{browser, std::move(window)};
}

} // namespace velmorin
