#include "app/platform/posix/Child.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmorin {

namespace {

constexpr const char* nowhere = "/dev/null";

/// Remembers the first of several error numbers.
class FirstError {
public:
    void note(int error) {
        if (m_error == 0) m_error = error;
    }
    int value() const { return m_error; }

private:
    int m_error = 0;
};

/// What becomes of the descriptors of a child.
class FileActions {
public:
    FileActions() { m_error.note(::posix_spawn_file_actions_init(&m_actions)); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;
    ~FileActions() { ::posix_spawn_file_actions_destroy(&m_actions); }

    void discardInput() { m_error.note(openNowhere(STDIN_FILENO, O_RDONLY)); }
    void connectOutput(int number, const Descriptor& to) {
        m_error.note(to.isOpen() ? ::posix_spawn_file_actions_adddup2(&m_actions, to.number(), number)
                                 : openNowhere(number, O_WRONLY));
    }
    /// All of ours close by themselves in a child. This is for what a library may have opened without saying so.
    void closeTheRest() {
#ifdef __GLIBC__
        m_error.note(::posix_spawn_file_actions_addclosefrom_np(&m_actions, STDERR_FILENO + 1));
#endif
    }

    const posix_spawn_file_actions_t* get() const {
        return &m_actions;
    }
    int error() const {
        return m_error.value();
    }

private:
    int openNowhere(int number, int flags) {
        return ::posix_spawn_file_actions_addopen(&m_actions, number, nowhere, flags, 0);
    }

    posix_spawn_file_actions_t m_actions{};
    FirstError m_error;
};

/// Signals as in a program that was started from a shell: a child would inherit which are ignored and which are held
/// back, and a program that ignores SIGPIPE, as this one may, would make children that never notice a closed pipe.
class DefaultSignals {
public:
    DefaultSignals() {
        m_error.note(::posix_spawnattr_init(&m_attributes));
        sigset_t signals;
        sigemptyset(&signals);
        m_error.note(::posix_spawnattr_setsigmask(&m_attributes, &signals));
        sigfillset(&signals);
        // These two cannot be changed, and some systems refuse to be asked.
        sigdelset(&signals, SIGKILL);
        sigdelset(&signals, SIGSTOP);
        m_error.note(::posix_spawnattr_setsigdefault(&m_attributes, &signals));
        m_error.note(::posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
    }
    DefaultSignals(const DefaultSignals&) = delete;
    DefaultSignals& operator=(const DefaultSignals&) = delete;
    ~DefaultSignals() { ::posix_spawnattr_destroy(&m_attributes); }

    const posix_spawnattr_t* get() const { return &m_attributes; }
    int error() const { return m_error.value(); }

private:
    posix_spawnattr_t m_attributes{};
    FirstError m_error;
};

/// A list of texts as system functions take it, ending with a null pointer. Valid as long as the texts.
std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (auto& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// A program would be given only what stands before a zero byte: something else than was meant.
bool canBePassed(const std::vector<std::string>& texts) {
    return std::ranges::none_of(texts, [](const std::string& text) { return text.find('\0') != std::string::npos; });
}

} // namespace

std::vector<std::string> currentEnvironment() {
    std::vector<std::string> environment;
    for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable)
        environment.emplace_back(*variable);
    return environment;
}

Child::Child(const Program& program, const Descriptor& output, const Descriptor& error) : m_code{SIGTERM} {
    FileActions actions;
    actions.discardInput();
    actions.connectOutput(STDOUT_FILENO, output);
    actions.connectOutput(STDERR_FILENO, error);
    actions.closeTheRest();
    const DefaultSignals signals;
    std::vector<std::string> arguments{program.executable};
    arguments.insert(arguments.end(), program.arguments.begin(), program.arguments.end());
    std::vector<std::string> environment = program.environment;

    FirstError failure;
    failure.note(actions.error());
    failure.note(signals.error());
    failure.note(canBePassed(arguments) ? 0 : EINVAL);
    if (failure.value() == 0) {
        failure.note(::posix_spawn(&m_id, arguments.front().c_str(), actions.get(), signals.get(),
                                   pointersTo(arguments).data(), pointersTo(environment).data()));
    }
    m_launchError = failure.value();
    m_hasEnded = m_launchError != 0;
}

bool Child::hasEnded() {
    return reap(WNOHANG);
}

void Child::waitForEnd() {
    reap(0);
}

void Child::askToEnd() {
    // Nobody else reaps this ID, so until its end is seen here no other process can have it.
    if (!m_hasEnded) ::kill(m_id, SIGTERM);
}

bool Child::reap(int options) {
    if (m_hasEnded) return true;
    int status = 0;
    const pid_t ended = uninterrupted([&] { return ::waitpid(m_id, &status, options); });
    if (ended == 0) return false;
    m_hasEnded = true;
    if (ended == m_id) m_code = WIFEXITED(status) ? WEXITSTATUS(status) : WTERMSIG(status);
    return true;
}

} // namespace velmorin
