#include "app/engine/LaunchAgent.h"

#include "app/engine/Watchdog.h"
#include "core/store/AtomicFile.h"

#include <utility>

namespace velmorin {

LaunchAgent::LaunchAgent(Place place, ChildProcesses& childProcesses, Files& files)
    : m_place{std::move(place)}, m_childProcesses{childProcesses}, m_files{files} {}

void LaunchAgent::install(const std::vector<std::string>& launchArguments) {
    if (!m_place.bundlePath.ends_with(".app")) return;
    const auto agent = Watchdog::propertyList(m_place.bundlePath, launchArguments);
    if (!agent) return;
    m_files.makeDirectory(agentFile().parent_path());
    launchctl({"bootout", serviceTarget()});
    if (!replaceFile(m_files, agentFile(), *agent)) return;
    launchctl({"bootstrap", domainTarget(), agentFile().string()});
}

void LaunchAgent::remove() {
    launchctl({"bootout", serviceTarget()});
    m_files.remove(agentFile());
}

std::filesystem::path LaunchAgent::agentFile() const {
    return m_place.homeDirectory / "Library" / "LaunchAgents" / (std::string{Watchdog::label} + ".plist");
}

std::string LaunchAgent::domainTarget() const {
    return "gui/" + std::to_string(m_place.userID);
}

std::string LaunchAgent::serviceTarget() const {
    return domainTarget() + "/" + std::string{Watchdog::label};
}

void LaunchAgent::launchctl(const std::vector<std::string>& arguments) {
    m_childProcesses.runAndWait(controlTool, arguments);
}

} // namespace velmorin
