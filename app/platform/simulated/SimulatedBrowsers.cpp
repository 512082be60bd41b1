#include "app/platform/simulated/SimulatedBrowsers.h"

#include "core/foundation/RawValue.h"

#include <csignal>
#include <optional>
#include <utility>

namespace velmorin {

namespace {

const ScriptResult refused{1, "", "execution error: Not authorized to send Apple events. (-1743)"};
const ScriptResult failed{1, "", "execution error: the application is not answering"};
const ScriptResult timedOut{SIGTERM, "", ""};
const ScriptResult notFound{-1, "", "No such file or directory"};

/// The window that a script blanks; absent for any other script.
std::optional<std::string> blankedWindow(BrowserKind kind, const std::string& script) {
    constexpr std::string_view before = "as text) is \"";
    const auto start = script.find(before);
    if (start == std::string::npos) return std::nullopt;
    const auto end = script.find('"', start + before.size());
    const std::string windowID = script.substr(start + before.size(), end - start - before.size());
    return script == BrowserScripts::blankTab(kind, windowID) ? std::optional{windowID} : std::nullopt;
}

std::string linesOf(const SimulatedBrowsers::Tabs& tabs) {
    std::string lines;
    for (const auto& tab : tabs)
        lines += tab.windowID + "|||" + tab.url + "\n";
    return lines;
}

} // namespace

SimulatedBrowsers::Tabs SimulatedBrowsers::tabs(BrowserKind kind) const {
    const auto found = m_behaviours.find(kind);
    if (found == m_behaviours.end()) return {};
    const auto* tabs = std::get_if<Tabs>(&found->second.says);
    return tabs ? *tabs : Tabs{};
}

void SimulatedBrowsers::run(const std::string& executable, const Arguments& arguments, double timeout,
                            Completion completion) {
    if (executable == scriptTool && arguments.size() == 2 && arguments[0] == "-e") {
        for (const auto kind : allCases<BrowserKind>()) {
            if (arguments[1] == BrowserScripts::listTabs(kind)) {
                listTabs(kind, timeout, std::move(completion));
                return;
            }
            if (const auto windowID = blankedWindow(kind, arguments[1])) {
                blankTab(kind, *windowID, timeout, std::move(completion));
                return;
            }
        }
    }
    finishLater(0, timeout, notFound, std::move(completion));
}

void SimulatedBrowsers::listTabs(BrowserKind kind, double timeout, Completion completion) {
    tellScript(kind, timeout, "listTabs", nullptr);
    const Behaviour behaviour = m_behaviours[kind];
    ScriptResult result;
    if (std::holds_alternative<Denied>(behaviour.says)) {
        result = refused;
    } else if (const auto* tabs = std::get_if<Tabs>(&behaviour.says)) {
        result.output = linesOf(*tabs);
    } else {
        result = failed;
    }
    finishLater(behaviour.delay, timeout, std::move(result), std::move(completion));
}

void SimulatedBrowsers::blankTab(BrowserKind kind, const std::string& windowID, double timeout, Completion completion) {
    tellScript(kind, timeout, "blankTab", &windowID);
    const double delay = m_behaviours[kind].delay;
    finishLater(delay, timeout, {},
                [this, kind, windowID, completion = std::move(completion)](const ScriptResult& result) {
                    Behaviour& behaviour = m_behaviours[kind];
                    auto* tabs = std::get_if<Tabs>(&behaviour.says);
                    if (result.code == 0 && tabs && !behaviour.isStubborn) {
                        for (auto& tab : *tabs) {
                            if (tab.windowID == windowID) tab.url = "about:blank";
                        }
                    }
                    completion(result);
                });
}

void SimulatedBrowsers::finishLater(double delay, double timeout, ScriptResult result, Completion completion) {
    if (delay > timeout) {
        delay = timeout;
        result = timedOut;
    }
    m_time.after(delay, [completion = std::move(completion), result = std::move(result)] { completion(result); })
        .detach();
}

void SimulatedBrowsers::tellScript(BrowserKind kind, double timeout, std::string_view what,
                                   const std::string* windowID) const {
    m_journal.tell("script", [&](JSONOutput& output) {
        output.key("kind");
        output.write(rawValue(kind));
        output.key("timeout");
        output.write(timeout);
        output.key("what");
        output.write(what);
        if (!windowID) return;
        output.key("windowID");
        output.write(*windowID);
    });
}

} // namespace velmorin
