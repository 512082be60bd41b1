#include "app/platform/posix/PosixChildProcesses.h"

#include "app/platform/posix/Child.h"
#include "app/platform/posix/ChildOutputs.h"
#include "core/foundation/Text.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <future>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace velmorin {

/// The way of results from the threads of the children back to whoever waits for them. The completions never leave the
/// main thread: what they hold belongs there, also when it comes to an end.
class PosixChildProcesses::Results final : public std::enable_shared_from_this<Results> {
public:
    using Ticket = std::uint64_t;

    explicit Results(Post post) : m_post{std::move(post)} {}

    /// Main thread.
    Ticket expect(Completion completion) {
        m_completions.emplace(++m_lastTicket, std::move(completion));
        return m_lastTicket;
    }

    /// Any thread.
    void post(Ticket ticket, ScriptResult result) {
        // Held while posting: once `close` has returned, nobody calls what it was given any more.
        const std::lock_guard lock{m_mutex};
        if (!m_post) return;
        m_post([self = shared_from_this(), ticket, result = std::move(result)] { self->deliver(ticket, result); });
    }

    /// Nothing is posted or delivered from now on. Main thread.
    void close() {
        // What these hold comes to an end when nothing here is held or used any more.
        const auto completions = std::exchange(m_completions, {});
        Post post;
        const std::lock_guard lock{m_mutex};
        m_post.swap(post);
    }

private:
    void deliver(Ticket ticket, const ScriptResult& result) {
        // Taken out before it is called: it may run the next program, or end all of this.
        const auto expected = m_completions.extract(ticket);
        if (!expected.empty()) expected.mapped()(result);
    }

    std::map<Ticket, Completion> m_completions;
    Ticket m_lastTicket = 0;
    std::mutex m_mutex;
    Post m_post;
};

namespace {

using Clock = std::chrono::steady_clock;

/// How long a child that was asked to end is given before its result comes without it.
constexpr std::chrono::seconds grace{1};

/// No guard needs more, and the clock can count this far.
constexpr double longestTimeout = 1e8;

constexpr std::chrono::milliseconds shortestPause{1};
constexpr std::chrono::milliseconds longestPause{50};

/// Does work on a thread of its own that nobody waits for. Returns the error number where there is no thread to be had.
template <class Work>
int inBackground(Work work) {
    try {
        std::thread{std::move(work)}.detach();
        return 0;
    } catch (const std::system_error& failure) {
        return failure.code().value();
    }
}

ScriptResult notStarted(int error) {
    return {-1, "", std::generic_category().message(error)};
}

Clock::duration guardTime(double timeout) {
    // Written so that what is no number counts as zero.
    const std::chrono::duration<double> seconds{timeout > 0 ? std::min(timeout, longestTimeout) : 0.0};
    return std::chrono::duration_cast<Clock::duration>(seconds);
}

/// Reads until the child has ended, or until this moment. Tells whether it has. No function of POSIX waits for a child
/// for a limited time, so this asks again and again with pauses. That costs next to nothing: a child mostly ends in the
/// moment in which its outputs do, and else it is either silent or has just been asked to end.
bool readUntilEnd(Child& child, ChildOutputs& outputs, Clock::time_point moment) {
    for (auto pause = shortestPause; !child.hasEnded(); pause = std::min(2 * pause, longestPause)) {
        const auto now = Clock::now();
        if (now >= moment) return false;
        outputs.readOnce(std::min(now + pause, moment));
    }
    return true;
}

/// Reads a child to its end, or as long as `timeout` allows. Whether it has ended before both outputs have does not
/// matter until then: its own children may keep them open, and what these say is part of what it says.
ScriptResult readToEnd(Child& child, ChildOutputs& outputs, double timeout) {
    const auto guard = Clock::now() + guardTime(timeout);
    outputs.readUntil(guard);
    if (!readUntilEnd(child, outputs, guard)) {
        child.askToEnd();
        // Nothing is ever forced to end. One that does not listen goes on, but its result comes.
        readUntilEnd(child, outputs, guard + grace);
    }
    // Whatever a child wrote was written before its end, which was seen above.
    outputs.readTheRest();
    return {child.code(), repairedUTF8(outputs.output()), repairedUTF8(outputs.errorOutput())};
}

/// Runs a program, hands its result to `deliver` and returns when it has ended.
template <class Deliver>
void runToEnd(const Program& program, double timeout, Deliver deliver) {
    // The pipes are closed before the result is told.
    auto outputs = std::make_unique<ChildOutputs>();
    if (outputs->error() != 0) return deliver(notStarted(outputs->error()));
    Child child{program, outputs->standardOutput(), outputs->standardError()};
    outputs->closeWritingEnds();
    auto result = child.launchError() == 0 ? readToEnd(child, *outputs, timeout) : notStarted(child.launchError());
    outputs.reset();
    deliver(std::move(result));
    // For one that did not end when asked to.
    child.waitForEnd();
}

/// A program whose parent ignored the ends of its children is started ignoring them too, and then the system throws
/// each exit status away.
void noticeEndsOfChildren() {
    struct sigaction action {};
    if (::sigaction(SIGCHLD, nullptr, &action) == 0 && action.sa_handler == SIG_IGN) std::signal(SIGCHLD, SIG_DFL);
}

} // namespace

PosixChildProcesses::PosixChildProcesses(Post post) : m_results{std::make_shared<Results>(std::move(post))} {
    noticeEndsOfChildren();
}

PosixChildProcesses::~PosixChildProcesses() {
    m_results->close();
}

void PosixChildProcesses::run(const std::string& executable, const Arguments& arguments, double timeout,
                              Completion completion) {
    const auto ticket = m_results->expect(std::move(completion));
    const auto deliver = [results = m_results, ticket](ScriptResult result) {
        results->post(ticket, std::move(result));
    };
    // The environment is read here, where it may be changed; a program is looked for on a thread that may wait for it.
    const int error = inBackground([program = Program{executable, arguments, currentEnvironment()}, timeout, deliver] {
        runToEnd(program, timeout, deliver);
    });
    if (error != 0) deliver(notStarted(error));
}

void PosixChildProcesses::start(const std::string& executable, const Arguments& arguments) {
    // The thread that reaps it comes first: without one it would stay a zombie. The start itself is here, so that it
    // has happened even when this program ends right after.
    std::promise<Child> started;
    auto reap = [child = started.get_future()]() mutable { child.get().waitForEnd(); };
    if (inBackground(std::move(reap)) == 0) started.set_value(Child{{executable, arguments, currentEnvironment()}});
}

void PosixChildProcesses::runAndWait(const std::string& executable, const Arguments& arguments) {
    Child{{executable, arguments, currentEnvironment()}}.waitForEnd();
}

} // namespace velmorin
