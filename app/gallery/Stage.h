#pragma once

#include "app/engine/AppData.h"
#include "app/engine/SessionController.h"
#include "app/platform/simulated/SimulatedApplication.h"
#include "app/platform/simulated/SimulatedDesktop.h"
#include "app/shell/MainModel.h"
#include "app/shell/SessionModel.h"
#include "app/shell/ShellContext.h"

#include <filesystem>
#include <string_view>

namespace velmorin {

/// The real engine on a simulated desktop, with what screens need of it: for the gallery and for tests of the screens.
/// Its language and colours are those of `Appearance::shared`, which follow its settings. Main thread.
struct Stage {
    /// `files` hold what the disk holds, in `directory`, and must outlive this. Nothing runs yet.
    Stage(Files& files, std::filesystem::path directory, Date start);
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// Changes the settings to this language and these colours.
    void wear(AppLanguage language, ColorTheme theme);
    /// A profile of the default timings that allows the editor, which is in front.
    static Profile profile(SessionMode mode);
    /// Starts a session for what the user says it is for, and lets the time pass in which nothing counts.
    void startSession(const Profile& profile, std::string_view intent);
    /// Brings an application to the front that the session does not allow, so that a warning is up where one counts.
    void push(std::string_view name);
    /// Pairs a phone, which says hello and then no more.
    void pairPhone();
    void advance(double seconds) { desktop.time.advance(seconds); }

    SimulatedDesktop desktop;
    SimulatedApplication application;
    AppData data;
    SessionController controller;
    ShellContext context;
    SessionModel session;
    MainModel main;
};

} // namespace velmorin
