#pragma once

#include "tests/support/Samples.h"
#include "tests/support/TemporaryDirectory.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <sys/types.h>

namespace velmorin {

/// A sound server of its own without loudspeakers, whose output is recorded. The environment names it to this program.
class SoundServer {
public:
    static constexpr int rate = 48'000; ///< samples of a second

    SoundServer();
    SoundServer(const SoundServer&) = delete;
    SoundServer& operator=(const SoundServer&) = delete;
    ~SoundServer() { stop(); }

    /// Returns when it is recorded, from the beginning. Throws when it does not start soon.
    void start();
    /// Ends it, as its crash would.
    void stop();

    /// How much has been recorded, in samples.
    std::size_t size() const;
    /// What has been recorded from a place on.
    Samples since(std::size_t begin) const;

private:
    std::filesystem::path socket() const { return m_directory.path() / "native"; }
    std::filesystem::path recording() const { return m_directory.path() / "recording"; }
    /// Waits for a process to have got so far; throws when it ends or takes too long.
    void await(pid_t& process, const char* purpose, const std::function<bool()>& condition);

    TemporaryDirectory m_directory;
    pid_t m_server = -1;
    pid_t m_recorder = -1;
};

} // namespace velmorin
