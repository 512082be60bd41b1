#pragma once

#include "core/store/Descriptor.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <string>

namespace velmorin {

/// Two pipes, for the two outputs of a child, read at the same time: a child that fills the one while its parent waits
/// for the other would wait for ever, and its parent with it. One thread at a time.
class ChildOutputs {
public:
    using Moment = std::chrono::steady_clock::time_point;

    /// Of each output this many bytes are kept; the rest is read and thrown away. A program that never stops talking
    /// must not fill the memory, nor come to stand.
    static constexpr std::size_t mostKept = std::size_t{64} << 20;

    /// Makes the pipes. Where that fails nothing is open and `error` says why.
    ChildOutputs();

    /// The error number that kept the pipes from being made; 0 when they are there.
    int error() const { return m_error; }

    /// Where the child writes to, to be closed by `closeWritingEnds` as soon as it has them: a pipe ends when the last
    /// who could write to it has gone.
    const Descriptor& standardOutput() const { return m_streams[0].writingEnd; }
    const Descriptor& standardError() const { return m_streams[1].writingEnd; }
    void closeWritingEnds();

    /// Reads until both outputs have ended, or until this moment.
    void readUntil(Moment moment);
    /// Reads what comes first, if anything does before this moment; only waits where both outputs have ended.
    void readOnce(Moment moment);
    /// Reads what the pipes hold by now, without waiting for more.
    void readTheRest();

    const std::string& output() const { return m_streams[0].bytes; }
    const std::string& errorOutput() const { return m_streams[1].bytes; }

private:
    struct Stream {
        Descriptor readingEnd;
        Descriptor writingEnd;
        std::string bytes;
    };

    static int open(Stream& stream);
    static void read(Stream& stream);
    bool haveEnded() const { return !m_streams[0].readingEnd.isOpen() && !m_streams[1].readingEnd.isOpen(); }
    bool readWithin(int milliseconds);

    std::array<Stream, 2> m_streams;
    int m_error = 0;
};

} // namespace velmorin
