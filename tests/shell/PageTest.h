#pragma once

#include "app/engine/AppData.h"
#include "app/engine/SessionController.h"
#include "app/platform/simulated/SimulatedApplication.h"
#include "app/platform/simulated/SimulatedDesktop.h"
#include "app/shell/ShellContext.h"
#include "tests/support/MemoryFiles.h"

#include <QString>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace velmorin {

/// A browser setup that remembers what it was asked.
class RecordingBrowserSetup final : public BrowserSetup {
public:
    std::string pageAddress(BrowserKind kind) const override { return std::string{rawValue(kind)} + "://extensions"; }
    std::string folder(BrowserKind) const override { return "/usr/share/extension"; }
    bool introduce(BrowserKind kind) override {
        introduced.push_back(kind);
        return succeeds;
    }

    bool succeeds = true;
    std::vector<BrowserKind> introduced;
};

/// The engine on a simulated desktop, in English, for the models of pages.
class PageTest : public testing::Test {
protected:
    PageTest();

    /// The profile at a place as the data has it.
    const Profile& profile(std::size_t place = 0) { return data.profiles()->at(place); }
    /// Replaces all profiles.
    void setProfiles(std::vector<Profile> profiles) { data.setProfiles(std::move(profiles)); }
    const AppStrings& strings() { return appearance.strings(); }
    void speak(AppLanguage language);
    static QString text(std::string_view utf8);

    MemoryFiles files;
    SimulatedDesktop desktop{Date{800'000'000}, files};
    Appearance appearance;
    SimulatedApplication application{SimulatedWorkspace::firstOwnPID, "com.kestrava.velmorin"};
    AppData data;
    SessionController controller;
    RecordingBrowserSetup setup;
    ShellContext context;
};

} // namespace velmorin
