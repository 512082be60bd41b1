#include "tests/support/X11World.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <stdexcept>
#include <unistd.h>

namespace velmorin {

namespace fs = std::filesystem;

X11World::X11World() {
    fs::create_directories(entriesFolder());
    m_connection = X11Connection::open(m_runner.loop());
    m_hands = X11Connection::open(m_runner.loop());
    if (!m_connection || !m_hands) throw std::runtime_error{"these tests need a display"};
    m_workspace = std::make_unique<X11Workspace>(*m_connection,
                                                 X11Workspace::Knowledge{m_identities, m_processes, m_launcher, self});
}

X11World::~X11World() {
    m_programs.clear();
    // What was opened by the workspace is nobody's child, and may come late.
    m_runner.run(0.1);
    m_runner.runUntil([&] {
        const auto running = m_workspace->runningApplications();
        for (const auto& application : running)
            if (const auto pid = application->processIdentifier(); pid > 0 && pid != ownPID()) ::kill(pid, SIGKILL);
        return running.size() == 2; // this program and the desktop
    });
}

std::int32_t X11World::ownPID() {
    return static_cast<std::int32_t>(::getpid());
}

void X11World::writeEntry(const std::string& id, const std::string& name) {
    std::ofstream{entriesFolder() / (id + ".desktop")} << "[Desktop Entry]\nType=Application\nName=" << name
                                                       << "\nExec=" << programOf(id).string() << " --class " << id
                                                       << "\n";
    // The index hears of it from the file system.
    m_runner.runUntil([&] { return m_entries.withID(id) != nullptr; });
}

WindowProgram& X11World::launch(const std::string& name, const std::vector<std::string>& arguments) {
    auto& program = m_programs.emplace_back(programOf(name), arguments);
    m_runner.runUntil([&] { return application(program.processID()) != nullptr; });
    return program;
}

WindowProgram& X11World::launchPart(const std::string& name, const std::vector<std::string>& arguments) {
    return m_programs.emplace_back(programOf(name), arguments);
}

WindowProgram& X11World::find(std::int32_t pid) {
    for (auto& program : m_programs)
        if (program.processID() == pid) return program;
    throw std::runtime_error{"no such program"};
}

Workspace::Application X11World::application(std::int32_t pid) const {
    for (const auto& application : m_workspace->runningApplications())
        if (application->processIdentifier() == pid) return application;
    return nullptr;
}

void X11World::userActivates(std::uint32_t window) {
    constexpr std::uint32_t user = 2;
    m_hands->askManager(window, m_hands->ewmh()._NET_ACTIVE_WINDOW, user);
    m_hands->flush();
}

void X11World::userIconifies(std::uint32_t window) {
    constexpr std::uint32_t iconic = 3;
    m_hands->askManager(window, m_hands->atoms().wmChangeState, iconic);
    m_hands->flush();
}

void X11World::userIconifiesAll() {
    for (const auto& program : m_programs)
        userIconifies(program.window());
}

std::vector<std::uint32_t> X11World::words(std::uint32_t window, const std::string& property) {
    auto* const connection = m_hands->get();
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(property.size()), property.data());
    const X11Reply<xcb_intern_atom_reply_t> atom{xcb_intern_atom_reply(connection, cookie, nullptr)};
    if (!atom) return {};
    return X11Property{connection, X11Property::request(connection, window, atom->atom)}.words();
}

/// Each application is a program of its own, as applications are.
fs::path X11World::programOf(const std::string& name) const {
    const auto path = m_directory.path() / name;
    if (!fs::exists(path)) fs::copy_file(VELMORIN_TEST_WINDOW, path);
    return path;
}

} // namespace velmorin
