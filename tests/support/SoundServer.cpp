#include "tests/support/SoundServer.h"

#include "core/store/PosixFiles.h"

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmorin {

namespace {

pid_t spawn(std::vector<std::string> words, int output) {
    const auto process = ::fork();
    if (process != 0) return process;
    ::setsid();
    // A test that is killed takes it along.
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(::open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
    std::vector<char*> pointers;
    for (auto& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    ::execvp(pointers.front(), pointers.data());
    ::_exit(127);
}

void end(pid_t& process, int signal) {
    if (process <= 0) return;
    ::kill(process, signal);
    ::waitpid(process, nullptr, 0);
    process = -1;
}

} // namespace

SoundServer::SoundServer() {
    ::setenv("HOME", m_directory.path().c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", m_directory.path().c_str(), 1);
    ::setenv("PULSE_SERVER", ("unix:" + socket().string()).c_str(), 1);
    start();
}

void SoundServer::start() {
    // Rewinding, the sink would mix a new sound into what the recorder has read already, and its first milliseconds
    // would be missing.
    m_server =
        spawn({"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--disallow-exit", "--use-pid-file=no",
               "--disable-shm=yes", "-L", "module-null-sink sink_name=probe rate=48000 channels=1 norewinds=1", "-L",
               "module-native-protocol-unix auth-anonymous=1 socket=" + socket().string()},
              STDERR_FILENO);
    await(m_server, "the sound server does not start", [&] { return std::filesystem::exists(socket()); });
    const int file = ::open(recording().c_str(), O_CREAT | O_WRONLY | O_TRUNC | O_CLOEXEC, 0600);
    m_recorder = spawn(
        {"parec", "--latency-msec=20", "-d", "probe.monitor", "--format=s16le", "--rate=48000", "--channels=1"}, file);
    ::close(file);
    await(m_recorder, "nothing is recorded of the sound server", [&] { return size() > 0; });
}

void SoundServer::await(pid_t& process, const char* purpose, const std::function<bool()>& condition) {
    constexpr useconds_t pause = 10'000; // microseconds
    constexpr int attempts = 3000;       // for a machine that has much else to do
    for (int attempt = 0; attempt < attempts; ++attempt, ::usleep(pause)) {
        if (condition()) return;
        if (::waitpid(process, nullptr, WNOHANG) == process) {
            process = -1;
            break;
        }
    }
    // Who is under construction is not destroyed.
    stop();
    throw std::runtime_error{purpose};
}

void SoundServer::stop() {
    end(m_recorder, SIGKILL);
    end(m_server, SIGKILL);
    std::filesystem::remove(socket());
}

std::size_t SoundServer::size() const {
    struct stat info {};
    return ::stat(recording().c_str(), &info) == 0 ? static_cast<std::size_t>(info.st_size) / 2 : 0;
}

Samples SoundServer::since(std::size_t begin) const {
    const auto content = PosixFiles{}.read(recording()).value_or("");
    Samples samples;
    for (std::size_t index = begin; 2 * index + 1 < content.size(); ++index) {
        const auto low = static_cast<unsigned char>(content[2 * index]);
        const auto high = static_cast<unsigned char>(content[2 * index + 1]);
        samples.push_back(static_cast<std::int16_t>(low | high << 8U) / 32767.0);
    }
    return samples;
}

} // namespace velmorin
