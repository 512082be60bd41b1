#pragma once

#include "tests/support/EngineTest.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// The lock on applications and browsers, with what its tests ask. A session can be ended early without a wait.
class EnforcementTest : public EngineTest {
protected:
    using Tabs = SimulatedBrowsers::Tabs;
    using Denied = SimulatedBrowsers::Denied;
    using NoAnswer = SimulatedBrowsers::NoAnswer;

    static constexpr std::int32_t safari = 14;
    static constexpr std::int32_t mail = 15;
    static constexpr const char* editorID = "org.example.editor";
    static constexpr const char* gameID = "org.example.game";
    static constexpr const char* mailID = "org.example.mail";
    static constexpr const char* finderID = "com.apple.finder";
    static constexpr const char* chromeID = "com.google.Chrome";
    static constexpr const char* safariID = "com.apple.Safari";

    static constexpr BrowserKind chromeKind = BrowserKind::chrome;
    static constexpr BrowserKind safariKind = BrowserKind::safari;

    EnforcementTest() { setup.exitWaitOverride = 0; }

    void speak(AppLanguage language);
    /// A profile of the default timings that allows exactly these.
    static Profile allowing(const std::vector<std::string>& bundleIDs);
    /// Starts a session with the editor in front and the game hidden, and forgets what that did.
    void startWithEditorAndGame(SessionMode mode = SessionMode::pomodoro);
    /// Ends the session at once, without a summary.
    void endSession();
    std::int64_t attempts() { return session().attempts; }
    /// The warning that is up; null when there is none.
    const WarningInfo* warning();
    /// The number of repeated requests to quit; absent for an application that is only hidden.
    std::optional<std::int64_t> retries(std::int32_t pid);
    /// How often something was done to an application, as in "hide".
    std::size_t times(std::string_view event, std::int32_t pid) const;
    /// How often the event log has a line.
    std::size_t logged(std::string_view line) const;

    /// The browser runs and has a name.
    void addBrowser(BrowserKind kind);
    /// What a browser answers from now on, and how long each script takes.
    void answer(BrowserKind kind, SimulatedBrowsers::Says says, double delay = 0.1);
    /// The browsers that were asked, with the seconds they were given, as in "chrome 90".
    std::vector<std::string> asked() const { return scripts("listTabs", "timeout"); }
    /// The windows that were to be blanked, as in "chrome 7".
    std::vector<std::string> blanked() const { return scripts("blankTab", "windowID"); }

private:
    std::vector<std::string> scripts(std::string_view what, const std::string& detail) const;
};

} // namespace velmorin
