#include "app/lock/LinePrinter.h"

#include <cerrno>
#include <chrono>
#include <string_view>
#include <thread>
#include <unistd.h>
#include <utility>

namespace velmorin {

namespace {

/// False when nobody can read any more.
bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = ::write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

} // namespace

LinePrinter::LinePrinter(int descriptor) {
    std::thread{[queue = m_queue, descriptor] { write(queue, descriptor); }}.detach();
}

LinePrinter::~LinePrinter() {
    constexpr std::chrono::seconds patience{1};
    std::unique_lock lock{m_queue->mutex};
    m_queue->changed.wait_for(lock, patience, [this] { return m_queue->lines.empty() && !m_queue->isWriting; });
    m_queue->isClosed = true;
    m_queue->changed.notify_all();
}

void LinePrinter::print(std::string line) {
    const std::lock_guard lock{m_queue->mutex};
    if (m_queue->lines.size() == mostWaiting) return;
    m_queue->lines.push_back(std::move(line) + "\n");
    m_queue->changed.notify_all();
}

void LinePrinter::write(const std::shared_ptr<Queue>& queue, int descriptor) {
    std::unique_lock lock{queue->mutex};
    for (bool isRead = true;;) {
        queue->changed.wait(lock, [&] { return queue->isClosed || !queue->lines.empty(); });
        if (queue->isClosed) return;
        const auto line = std::move(queue->lines.front());
        queue->lines.pop_front();
        queue->isWriting = true;
        lock.unlock();
        isRead = isRead && writeAll(descriptor, line);
        lock.lock();
        queue->isWriting = false;
        queue->changed.notify_all();
    }
}

} // namespace velmorin
