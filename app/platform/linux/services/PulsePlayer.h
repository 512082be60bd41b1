#pragma once

#include "app/platform/linux/services/WaveFile.h"

#include <memory>

namespace velmorin {

/// Plays sounds on the sound server of the session, over its PulseAudio protocol, from the main loop. Connects for the
/// first sound and leaves the server some time after the last, so that nothing is awake while all is silent. Without a
/// server nothing is heard. Main thread; nothing blocks.
class PulsePlayer {
public:
    /// `idleTime` is the seconds of silence after which it leaves.
    explicit PulsePlayer(double idleTime);
    PulsePlayer(const PulsePlayer&) = delete;
    PulsePlayer& operator=(const PulsePlayer&) = delete;
    /// What is still heard ends.
    ~PulsePlayer();

    /// Beside what is still heard.
    void play(Wave wave);
    /// Whether it holds a connection, or is making one.
    bool isConnected() const;

private:
    class Connection;

    void connect();
    void leave();
    void lose();
    void awaitIdleness();
    void forgetIdleness();

    double m_idleTime;
    std::unique_ptr<Connection> m_connection;
    unsigned m_idleTimer = 0;
    unsigned m_loss = 0; ///< the call that cleans up after a connection that has gone
};

} // namespace velmorin
