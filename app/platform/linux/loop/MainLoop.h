#pragma once

#include "app/seams/Cancellable.h"

#include <functional>
#include <memory>

struct _GMainContext;

namespace velmorin {

/// The loop of the main thread: GLib's default context, which the toolkit's own loop drives as well, so that all that
/// is asked for here works in a program with windows and in one without. Made on the main thread and used there, but
/// for `post`.
class MainLoop {
public:
    using Call = std::function<void()>;

    MainLoop();
    MainLoop(const MainLoop&) = delete;
    MainLoop& operator=(const MainLoop&) = delete;
    /// What was posted by now is not called any more.
    ~MainLoop();

    /// Lets calls come in until `quit`, and gives what that was told. For a program without a loop of its own.
    int run();
    /// Ends `run` once the present call has returned. A call before `run` ends it at once.
    void quit(int status);

    /// Makes a call on the main thread, once the present work is done; calls from one thread in their order. Any
    /// thread.
    void post(Call call);

    /// Calls each time this descriptor can be read, or has reached its end, until the result goes, which must be before
    /// the descriptor is closed. `call` must take away what there is to read, or it comes again at once. `isPending` is
    /// asked before each wait, for a reader that may hold more than it has told of yet; it may be missing, and must not
    /// use the loop.
    [[nodiscard]] Cancellable watchReadable(int descriptor, Call call, std::function<bool()> isPending = {});

    /// Calls each time this signal arrives (SIGHUP, SIGINT, SIGTERM, SIGUSR1 or SIGUSR2), in the place of what it does
    /// by default, until the result goes.
    [[nodiscard]] Cancellable watchSignal(int number, Call call);

private:
    struct Posted;

    _GMainContext* m_context;
    std::shared_ptr<Posted> m_posted;
    bool m_isQuitting = false;
    int m_status = 0;
};

} // namespace velmorin
