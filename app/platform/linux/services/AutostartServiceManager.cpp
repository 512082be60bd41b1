#include "app/platform/linux/services/AutostartServiceManager.h"

#include "app/platform/linux/services/watchdog/Keeper.h"
#include "core/store/AtomicFile.h"
#include "core/store/Descriptor.h"

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace velmorin {

namespace {

/// How long a keeper that has lost its job is waited for.
constexpr std::chrono::milliseconds keeperPatience{1000};
constexpr std::chrono::milliseconds keeperPause{5};

/// Whether another process holds a lock on an open file.
bool isHeld(const Descriptor& file) {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return file.isOpen() && ::fcntl(file.number(), F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

void waitForEndOfKeeper(const Descriptor& job) {
    for (auto waited = keeperPause; isHeld(job) && waited < keeperPatience; waited += keeperPause)
        std::this_thread::sleep_for(keeperPause);
}

} // namespace

std::string desktopEntryWord(std::string_view text) {
    std::string word = "\"";
    for (const char character : text) {
        switch (character) {
        // Escaped for the command line, and the escapes again for the file.
        case '"':
        case '`':
        case '$': word.append("\\\\").append(1, character); break;
        case '\\': word += "\\\\\\\\"; break;
        case '%': word += "%%"; break;
        case '\n': word += "\\n"; break;
        case '\r': word += "\\r"; break;
        case '\t': word += "\\t"; break;
        default: word += character;
        }
    }
    return word + "\"";
}

AutostartServiceManager::AutostartServiceManager(WatchdogPlace place, ChildProcesses& childProcesses, Files& files)
    : m_place{std::move(place)}, m_childProcesses{childProcesses}, m_files{files} {}

void AutostartServiceManager::install(const std::vector<std::string>& launchArguments) {
    // A keeper that is there sees that its job has been replaced, and goes.
    if (writeFiles(launchArguments)) {
        m_childProcesses.runAndWait(m_place.checker.string(), keeper());
    } else {
        remove();
    }
}

void AutostartServiceManager::remove() {
    const Descriptor job{uninterrupted([&] { return ::open(jobFile().c_str(), O_RDWR | O_CLOEXEC); })};
    m_files.remove(entryFile());
    m_files.remove(jobFile());
    // Only an empty folder goes, and no link to one.
    for (const auto& file : {entryFile(), jobFile()})
        ::rmdir(file.parent_path().c_str());
    waitForEndOfKeeper(job);
}

std::filesystem::path AutostartServiceManager::jobFile() const {
    return m_place.configDirectory / "Velmorin" / "watchdog.job";
}

std::filesystem::path AutostartServiceManager::entryFile() const {
    return m_place.configDirectory / "autostart" / "com.kestrava.velmorin.watchdog.desktop";
}

std::vector<std::string> AutostartServiceManager::keeper() const {
    return {"keep", m_place.processName, jobFile().string(), entryFile().string()};
}

bool AutostartServiceManager::writeFiles(const std::vector<std::string>& launchArguments) {
    std::vector<std::string> command{m_place.program.string()};
    command.insert(command.end(), launchArguments.begin(), launchArguments.end());
    // No program can be handed a zero byte.
    const auto cannotBePassed = [](const std::string& word) { return word.find('\0') != std::string::npos; };
    if (std::ranges::any_of(command, cannotBePassed)) return false;
    std::string entry = "[Desktop Entry]\n"
                        "Type=Application\n"
                        "Name=Velmorin\n"
                        "Comment=Brings Velmorin back while a session runs\n"
                        "NoDisplay=true\n"
                        "Exec=" +
                        desktopEntryWord(m_place.checker.string());
    for (const auto& word : keeper())
        entry += " " + desktopEntryWord(word);
    m_files.makeDirectory(jobFile().parent_path());
    m_files.makeDirectory(entryFile().parent_path());
    return replaceFile(m_files, entryFile(), entry + "\n") && replaceFile(m_files, jobFile(), writtenWords(command));
}

} // namespace velmorin
