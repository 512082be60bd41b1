#include "tests/support/GuardedWorld.h"

#include "app/platform/linux/loop/GLibPointers.h"
#include "app/platform/linux/services/watchdog/Keeper.h"
#include "app/platform/linux/services/watchdog/SessionEnvironment.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <gio/gdesktopappinfo.h>
#include <iterator>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace velmorin {

namespace fs = std::filesystem;

namespace {

std::string contentOf(const fs::path& path) {
    std::ifstream file{path, std::ios::binary};
    return {std::istreambuf_iterator<char>{file}, {}};
}

fs::path processFolder(GuardedWorld::Process process) {
    return fs::path{"/proc"} / std::to_string(process);
}

/// The executable of a living process; empty for one that has ended, reaped or not.
std::string executableOf(GuardedWorld::Process process) {
    std::error_code gone;
    return fs::read_symlink(processFolder(process) / "exe", gone).string();
}

std::vector<GuardedWorld::Process> processes() {
    std::vector<GuardedWorld::Process> all;
    for (const auto& entry : fs::directory_iterator{"/proc"})
        if (const int process = std::atoi(entry.path().filename().c_str()); process > 0) all.push_back(process);
    return all;
}

} // namespace

GuardedWorld::GuardedWorld(fs::path configDirectory, fs::path runtimeDirectory)
    : GuardedWorld{"Velm-" + std::to_string(::getpid()), std::move(configDirectory), std::move(runtimeDirectory)} {}

GuardedWorld::GuardedWorld(const std::string& processName, fs::path configDirectory, fs::path runtimeDirectory) {
    const auto folder = m_directory.path() / "it's a \"100%\" $HOME \\ place";
    // GLib looks for the executable of an entry before it has read a percent sign for what it is.
    const auto checkerFolder = m_directory.path() / "it's \"another\" $HOME \\ place";
    fs::create_directories(folder);
    fs::create_directories(checkerFolder);
    fs::create_directories(configDirectory);
    fs::create_directories(runtimeDirectory);
    m_place = {processName, folder / processName, checkerFolder / "velmorin-watchdog", std::move(configDirectory),
               std::move(runtimeDirectory)};
    fs::copy_file(VELMORIN_STAND_IN, m_place.program);
    fs::copy_file(VELMORIN_WATCHDOG, m_place.checker);
    m_session = {{"DISPLAY", ""},
                 {"WAYLAND_DISPLAY", (m_directory.path() / "display").string()},
                 {"XAUTHORITY", (folder / "authority").string()},
                 {"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/bus"},
                 {"XDG_DATA_HOME", (folder / "data").string()},
                 {"XDG_CURRENT_DESKTOP", "Test \"desktop\" 'of' $ours"}};
    listen();
    for (const auto& [name, value] : m_session) {
        const char* before = std::getenv(name.c_str());
        m_before[name] = before == nullptr ? std::nullopt : std::optional<std::string>{before};
        ::setenv(name.c_str(), value.c_str(), 1);
    }
}

GuardedWorld::~GuardedWorld() {
    for (const auto& [name, value] : m_before)
        value ? ::setenv(name.c_str(), value->c_str(), 1) : ::unsetenv(name.c_str());
    closeDisplay();
    for (const auto process : keepers())
        kill(process);
    for (const auto process : living())
        kill(process);
    for (const auto& [program, application] : m_opened)
        if (executableOf(application).ends_with("/sleep")) ::kill(application, SIGKILL);
}

void GuardedWorld::listen() {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const auto path = m_session["WAYLAND_DISPLAY"];
    std::memcpy(address.sun_path, path.c_str(), std::min(path.size() + 1, sizeof address.sun_path - 1));
    m_display = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ::bind(m_display, static_cast<const sockaddr*>(static_cast<const void*>(&address)), sizeof address);
    ::listen(m_display, 100);
}

void GuardedWorld::closeDisplay() {
    if (m_display != -1) ::close(std::exchange(m_display, -1));
}

void GuardedWorld::launchAutostart() const {
    for (const auto& entry : fs::directory_iterator{m_place.configDirectory / "autostart"}) {
        const GOwned<GDesktopAppInfo> application{g_desktop_app_info_new_from_filename(entry.path().c_str())};
        if (!application) continue;
        g_app_info_launch(G_APP_INFO(application.get()), nullptr, nullptr, nullptr);
    }
    wait(1);
}

void GuardedWorld::wait(double seconds) {
    std::this_thread::sleep_for(std::chrono::duration<double>{seconds});
}

std::vector<GuardedWorld::Process> GuardedWorld::living() {
    auto found = processes();
    std::erase_if(found, [&](Process process) { return executableOf(process) != m_place.program.string(); });
    std::ranges::for_each(found, [this](Process process) { noteOpened(process); });
    // Between its birth and its end, what it opens is still the stand-in.
    std::erase_if(found, [&](Process process) {
        return std::ranges::any_of(found, [&](Process other) {
            return contentOf(processFolder(process) / "status").find("\nPPid:\t" + std::to_string(other) + "\n") !=
                   std::string::npos;
        });
    });
    return found;
}

std::vector<GuardedWorld::Process> GuardedWorld::keepers() const {
    auto found = processes();
    std::erase_if(found, [&](Process process) { return executableOf(process) != m_place.checker.string(); });
    return found;
}

std::vector<std::string> GuardedWorld::argumentsOf(Process process) {
    auto words = readWords(contentOf(processFolder(process) / "cmdline"));
    if (!words.empty()) words.erase(words.begin());
    return words;
}

std::map<std::string, std::string> GuardedWorld::environmentOf(Process process) {
    return readEnvironment(contentOf(processFolder(process) / "environ"));
}

void GuardedWorld::noteOpened(Process process) {
    const auto number = std::to_string(process);
    for (const int child : {std::atoi(contentOf(processFolder(process) / "task" / number / "children").c_str())})
        if (child > 0 && executableOf(child).ends_with("/sleep")) m_opened[process] = child;
}

std::optional<GuardedWorld::Process> GuardedWorld::openedBy(Process process) {
    noteOpened(process);
    const auto found = m_opened.find(process);
    if (found == m_opened.end() || !executableOf(found->second).ends_with("/sleep")) return std::nullopt;
    return found->second;
}

GuardedWorld::Process GuardedWorld::launch() {
    const auto process = ::fork();
    if (process == 0) {
        ::setsid();
        ::execl(m_place.program.c_str(), m_place.program.c_str(), nullptr);
        ::_exit(127);
    }
    while (executableOf(process) != m_place.program.string())
        wait(0.001);
    return process;
}

void GuardedWorld::kill(Process process) {
    if (process <= 0) return; // the system would take it for a group
    noteOpened(process);
    ::kill(process, SIGKILL);
    while (!executableOf(process).empty()) {
        ::waitpid(process, nullptr, WNOHANG);
        wait(0.001);
    }
    ::waitpid(process, nullptr, WNOHANG);
}

std::vector<std::string> GuardedWorld::filesLeft() const {
    std::vector<std::string> left;
    for (const auto& folder : {m_place.configDirectory, m_place.runtimeDirectory})
        for (const auto& entry : fs::recursive_directory_iterator{folder})
            // What the service manager notes of its own runs is its own business, and goes later.
            if (const auto name = entry.path().filename().string();
                name.find("watchdog") != std::string::npos && !name.starts_with("invocation:"))
                left.push_back(entry.path());
    return left;
}

} // namespace velmorin
