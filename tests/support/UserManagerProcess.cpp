#include "tests/support/UserManagerProcess.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace velmorin {

namespace fs = std::filesystem;

namespace {

constexpr const char* executable = "/lib/systemd/systemd";
/// It refuses to run where this is missing, as in a container; it looks only when it starts.
const fs::path bootMark = "/run/systemd/system";
constexpr std::chrono::milliseconds pause{20};
constexpr std::chrono::seconds patience{20};

template <class Condition>
bool soon(Condition condition) {
    for (auto waited = std::chrono::milliseconds::zero(); !condition(); waited += pause) {
        if (waited > patience) return false;
        std::this_thread::sleep_for(pause);
    }
    return true;
}

/// The mark, for as long as this lives, where there is none. One at a time on a machine.
class BootMark {
public:
    BootMark() : m_lock{::open("/run", O_RDONLY | O_DIRECTORY | O_CLOEXEC)} {
        ::flock(m_lock, LOCK_EX);
        std::error_code failure;
        m_isOurs = fs::create_directories(bootMark, failure);
    }
    BootMark(const BootMark&) = delete;
    BootMark& operator=(const BootMark&) = delete;
    ~BootMark() {
        std::error_code ignored;
        if (m_isOurs) fs::remove(bootMark, ignored);
        ::close(m_lock);
    }

private:
    int m_lock;
    bool m_isOurs = false;
};

[[noreturn]] void become(std::vector<std::string> environment, const fs::path& log) {
    ::setsid();
    const int output = ::open(log.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(output, STDERR_FILENO);
    std::vector<char*> pointers;
    for (auto& variable : environment)
        pointers.push_back(variable.data());
    pointers.push_back(nullptr);
    std::string words[]{executable, "--user"};
    char* const arguments[]{words[0].data(), words[1].data(), nullptr};
    ::execve(executable, arguments, pointers.data());
    ::_exit(127);
}

} // namespace

UserManagerProcess::UserManagerProcess()
    : m_home{m_directory.path() / "home"}, m_runtimeDirectory{m_directory.path() / "run"} {
    fs::create_directories(configDirectory() / "systemd" / "user");
    fs::create_directories(m_runtimeDirectory);
    fs::permissions(m_runtimeDirectory, fs::perms::owner_all);
    if (!fs::exists(executable)) {
        m_obstacle = "there is no systemd here";
        return;
    }
    const BootMark mark;
    if (!fs::exists(bootMark)) {
        m_obstacle = bootMark.string() + " is missing and cannot be made, so that no service manager of a user starts";
        return;
    }
    start();
    if (!awaitSocket())
        m_obstacle = "the service manager of a user does not start here; it cannot have control groups?";
}

UserManagerProcess::~UserManagerProcess() {
    if (m_process <= 0) return;
    // It stops its units and ends.
    ::kill(m_process, SIGTERM);
    if (!soon([&] { return ::waitpid(m_process, nullptr, WNOHANG) != 0; })) {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }
}

void UserManagerProcess::start() {
    std::vector<std::string> environment{
        "HOME=" + m_home.string(),
        "XDG_RUNTIME_DIR=" + m_runtimeDirectory.string(),
        "PATH=/usr/local/bin:/usr/bin:/bin",
        "SYSTEMD_LOG_TARGET=console",
    };
    m_process = ::fork();
    if (m_process == 0) become(std::move(environment), m_directory.path() / "log");
}

bool UserManagerProcess::awaitSocket() {
    return soon([&] { return fs::exists(socket()) || ::waitpid(m_process, nullptr, WNOHANG) != 0; }) &&
           fs::exists(socket());
}

} // namespace velmorin
