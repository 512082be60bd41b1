#pragma once

#include "app/platform/linux/loop/LoopTimers.h"
#include "app/platform/linux/loop/MainLoop.h"
#include "app/seams/Cancellable.h"
#include "core/store/Descriptor.h"

#include <filesystem>
#include <functional>
#include <list>

namespace velmorin {

/// Sees to it that one process of the program works on a data directory. The first one holds a lock there, which goes
/// with the process however it ends, and listens on a socket; a later one asks it there to show itself. Main thread.
class SingleInstance {
public:
    /// `directory` is made where it is missing, for this user alone. The loop must outlive this.
    SingleInstance(MainLoop& loop, const std::filesystem::path& directory);
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    /// Another process may be the first from now on.
    ~SingleInstance();

    /// Whether this is the first. Also where the directory takes no lock at all: nobody is kept from the program then.
    bool isFirst() const { return m_isFirst; }
    /// The first is asked by others to show itself, from the main loop; once for each that asks. Who asks while
    /// this has not been called is told nothing.
    void onShow(std::function<void()> call) { m_onShow = std::move(call); }
    /// A later one asks the first to show itself. Returns when it has been told, at the latest after a second; false
    /// when it could not be.
    bool askFirstToShow() const;

private:
    bool lock(const std::filesystem::path& file);
    void listen();
    void watch();
    void accept();
    void hear(int client);

    std::filesystem::path m_socketPath;
    Descriptor m_lock;
    Descriptor m_socket;
    bool m_isFirst = false;
    std::function<void()> m_onShow;
    struct Client {
        Descriptor socket;
        Cancellable watch;
    };
    std::list<Client> m_clients; ///< that have connected and said nothing yet, the oldest first
    Cancellable m_watch;
    MainLoop& m_loop;
    LoopTimers m_timers;
    Cancellable m_pause; ///< until connections are taken again
};

} // namespace velmorin
