#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <string>

namespace velmorin {

/// Writes lines to a descriptor from a thread of its own: a terminal that was stopped, or a reader that does not read,
/// must not stop the session. What is too much for such a reader is dropped.
class LinePrinter {
public:
    static constexpr std::size_t mostWaiting = 1000; ///< lines

    explicit LinePrinter(int descriptor);
    LinePrinter(const LinePrinter&) = delete;
    LinePrinter& operator=(const LinePrinter&) = delete;
    /// Gives what waits a second to be written.
    ~LinePrinter();

    /// Returns at once. Any thread.
    void print(std::string line);

private:
    /// Outlives this where a write never returns.
    struct Queue {
        std::mutex mutex;
        std::condition_variable changed;
        std::deque<std::string> lines;
        bool isWriting = false;
        bool isClosed = false;
    };

    static void write(const std::shared_ptr<Queue>& queue, int descriptor);

    std::shared_ptr<Queue> m_queue = std::make_shared<Queue>();
};

} // namespace velmorin
