#include "app/platform/linux/services/watchdog/Keeper.h"

#include "app/platform/linux/services/watchdog/ProcessLookup.h"
#include "app/platform/linux/services/watchdog/SessionEnvironment.h"
#include "app/platform/linux/services/watchdog/Start.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace velmorin {

namespace {

constexpr double checkInterval = 3; // seconds
/// A display server may be hard to reach for a moment; twice in a row means that the session is over.
constexpr int looksUntilGone = 2;

double now() {
    return std::chrono::duration<double>{std::chrono::steady_clock::now().time_since_epoch()}.count();
}

struct flock wholeFile() {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return lock;
}

bool isSame(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

std::string contentOf(int file) {
    std::string content;
    std::array<char, 4096> bytes{};
    for (off_t offset = 0;;) {
        const auto count = uninterrupted([&] { return ::pread(file, bytes.data(), bytes.size(), offset); });
        if (count <= 0) return content;
        content.append(bytes.data(), static_cast<std::size_t>(count));
        offset += count;
    }
}

/// Has the standard streams lead nowhere.
void leaveStreams() {
    const int nowhere = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        ::dup2(nowhere, stream);
    if (nowhere > STDERR_FILENO) ::close(nowhere);
}

} // namespace

std::string writtenWords(const Words& words) {
    std::string text;
    for (const auto& word : words)
        text.append(word).append(1, '\0');
    return text;
}

Words readWords(std::string_view text) {
    Words words;
    for (auto end = text.find('\0'); end != std::string_view::npos; end = text.find('\0')) {
        words.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    return words;
}

Keeper::Keeper(KeeperJob job)
    : m_job{std::move(job)},
      m_file{::open(m_job.file.c_str(), O_RDWR | O_CLOEXEC)},
      m_changes{::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)} {
    // An open file that is removed is only told as changed.
    constexpr std::uint32_t goes = IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF;
    ::inotify_add_watch(m_changes.number(), m_job.file.c_str(), goes);
    ::inotify_add_watch(m_changes.number(), m_job.entry.c_str(), goes);
}

bool Keeper::takeOver() {
    constexpr int patience = 100;
    constexpr std::chrono::milliseconds pause{20};
    for (int attempt = 0; m_file.isOpen() && attempt < patience; ++attempt) {
        auto lock = wholeFile();
        if (::fcntl(m_file.number(), F_SETLK, &lock) == 0) return true;
        // The one that is there knows an older session at best.
        lock = wholeFile();
        if (::fcntl(m_file.number(), F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK && lock.l_pid > 0)
            ::kill(lock.l_pid, SIGTERM);
        std::this_thread::sleep_for(pause);
    }
    return false;
}

void Keeper::run() {
    for (double next = now(); isWanted(); next = std::max(next + checkInterval, now())) {
        waitUntil(next);
        if (isWanted()) look();
    }
}

bool Keeper::isWanted() const {
    struct stat held {};
    struct stat found {};
    return m_looksWithoutDisplay < looksUntilGone && ::fstat(m_file.number(), &held) == 0 &&
           ::stat(m_job.file.c_str(), &found) == 0 && isSame(held, found) && ::access(m_job.entry.c_str(), F_OK) == 0;
}

void Keeper::look() {
    m_looksWithoutDisplay = canReachDisplay(ownEnvironment()) ? 0 : m_looksWithoutDisplay + 1;
    if (m_looksWithoutDisplay == 0 && !isProcessAlive(m_job.processName, ::getuid())) start();
}

void Keeper::waitUntil(double moment) {
    for (double left = moment - now(); left > 0 && isWanted(); left = moment - now()) {
        pollfd change{m_changes.number(), POLLIN, 0};
        if (::poll(&change, 1, static_cast<int>(std::ceil(left * 1000))) <= 0) continue;
        std::array<char, 4096> events{};
        while (::read(m_changes.number(), events.data(), events.size()) > 0) {
        }
    }
}

void Keeper::start() const {
    if (const auto words = readWords(contentOf(m_file.number())); !words.empty()) startDetached(words);
}

bool detached(const std::function<void(const std::function<void(bool)>& ready)>& work) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return false;
    Descriptor reading{ends[0]};
    Descriptor writing{ends[1]};
    const pid_t child = ::fork();
    if (child == 0) {
        reading.close();
        ::setsid();
        if (::chdir("/") != 0) ::_exit(1);
        std::signal(SIGHUP, SIG_IGN);
        leaveStreams();
        work([&](bool outcome) {
            const char told = outcome ? 1 : 0;
            uninterrupted([&] { return ::write(writing.number(), &told, 1); });
            writing.close();
        });
        ::_exit(0);
    }
    writing.close();
    char told = 0;
    return child > 0 && uninterrupted([&] { return ::read(reading.number(), &told, 1); }) == 1 && told == 1;
}

} // namespace velmorin
