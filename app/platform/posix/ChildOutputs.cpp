#include "app/platform/posix/ChildOutputs.h"

#include <algorithm>
#include <fcntl.h>
#include <limits>
#include <poll.h>

namespace velmorin {

namespace {

/// What a pipe holds unless someone made it larger, and so the most that one reading brings.
constexpr std::size_t pieceSize = std::size_t{64} << 10;

/// A pipe can be made to hold a mebibyte, which is 16 pieces.
constexpr int mostPiecesInPipe = 16;

/// The same file above the numbers of the standard streams. A program that was started without those gets their numbers
/// for whatever it opens next, and connecting the one stream of a child would close what the other is to have.
Descriptor aboveStandardStreams(Descriptor descriptor) {
    if (!descriptor.isOpen() || descriptor.number() > STDERR_FILENO) return descriptor;
    return Descriptor{::fcntl(descriptor.number(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1)};
}

/// The time until a moment in milliseconds, rounded up so that the last of them is not spent asking again and again.
int millisecondsUntil(ChildOutputs::Moment moment) {
    using std::chrono::milliseconds;
    const auto rest = std::chrono::ceil<milliseconds>(moment - std::chrono::steady_clock::now()).count();
    return static_cast<int>(std::clamp<milliseconds::rep>(rest, 0, std::numeric_limits<int>::max()));
}

} // namespace

ChildOutputs::ChildOutputs() {
    for (auto& stream : m_streams) {
        if (m_error == 0) m_error = open(stream);
    }
    if (m_error != 0) m_streams = {};
}

int ChildOutputs::open(Stream& stream) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return errno;
    stream.readingEnd = Descriptor{ends[0]};
    stream.writingEnd = Descriptor{ends[1]};
    stream.readingEnd = aboveStandardStreams(std::move(stream.readingEnd));
    if (!stream.readingEnd.isOpen()) return errno;
    stream.writingEnd = aboveStandardStreams(std::move(stream.writingEnd));
    return stream.writingEnd.isOpen() ? 0 : errno;
}

void ChildOutputs::closeWritingEnds() {
    for (auto& stream : m_streams)
        stream.writingEnd.close();
}

void ChildOutputs::readUntil(Moment moment) {
    while (!haveEnded() && std::chrono::steady_clock::now() < moment)
        readOnce(moment);
}

void ChildOutputs::readOnce(Moment moment) {
    readWithin(millisecondsUntil(moment));
}

void ChildOutputs::readTheRest() {
    // Whoever still writes could go on faster than this reads, hence only as much as can have been there.
    for (int piece = 0; piece < mostPiecesInPipe && readWithin(0); ++piece) {
    }
}

/// Reads one piece of each output that has something. False when none had within that time.
bool ChildOutputs::readWithin(int milliseconds) {
    std::array<pollfd, 2> awaited{};
    for (std::size_t index = 0; index < awaited.size(); ++index) {
        // That of an output that has ended is -1, which is passed over.
        awaited[index] = {m_streams[index].readingEnd.number(), POLLIN, 0};
    }
    if (::poll(awaited.data(), awaited.size(), milliseconds) <= 0) return false;
    for (std::size_t index = 0; index < awaited.size(); ++index) {
        if (awaited[index].revents != 0) read(m_streams[index]);
    }
    return true;
}

void ChildOutputs::read(Stream& stream) {
    std::array<char, pieceSize> piece{};
    const auto count = uninterrupted([&] { return ::read(stream.readingEnd.number(), piece.data(), piece.size()); });
    if (count <= 0) {
        stream.readingEnd.close();
        return;
    }
    stream.bytes.append(piece.data(), std::min(static_cast<std::size_t>(count), mostKept - stream.bytes.size()));
}

} // namespace velmorin
