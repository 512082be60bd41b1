#pragma once

#include "app/composition/LinuxSeams.h"
#include "app/engine/AppData.h"
#include "app/engine/Lifecycle.h"
#include "app/engine/SessionController.h"
#include "app/lock/LockOptions.h"
#include "app/platform/linux/x11/X11HotKey.h"
#include "app/seams/Lifetime.h"
#include "app/strings/Appearance.h"
#include "core/foundation/JSONOutput.h"
#include "core/store/Descriptor.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// The engine on a Linux desktop without a window: what happens is told as lines, and what the user wants is read as
/// lines. Main thread.
class LockProgram {
public:
    /// Gets each event as one JSON object.
    using Print = std::function<void(const std::string& line)>;

    /// The seams must outlive this. `profile` is for a new session; without it one that was left behind goes on.
    LockProgram(LinuxSeams& seams, LockOptions options, std::optional<Profile> profile, Print print);
    LockProgram(const LockProgram&) = delete;
    LockProgram& operator=(const LockProgram&) = delete;

    /// Goes through the launch, then through the session, and gives the exit status of the process.
    int run();
    /// Tells that another start of the program has handed over to this one, and how the session stands.
    void show();

private:
    using Members = std::function<void(JSONOutput&)>;

    void connect();
    void launch();
    void askToQuit();
    void obey(const std::string& line);
    bool readCommands(int descriptor, std::string& unread);
    void listenToPipe();
    void goBack();
    void tellSession();
    void tell(std::string_view event, const Members& members = {}) const;

    LinuxSeams& m_seams;
    LockOptions m_options;
    std::optional<Profile> m_profile;
    Print m_print;
    Appearance m_appearance;
    AppData m_data;
    SessionController m_controller;
    Lifecycle m_lifecycle;
    std::string m_input; ///< read from standard input, without its line end so far
    std::string m_pipeInput;
    Descriptor m_pipe;
    std::vector<Cancellable> m_watches;
    Cancellable m_commands;
    X11HotKey m_hotKey;
    Lifetime m_lifetime;
};

} // namespace velmorin
