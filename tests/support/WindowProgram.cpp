#include "tests/support/WindowProgram.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace velmorin {

WindowProgram::WindowProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
    std::array<int, 2> input{};
    std::array<int, 2> output{};
    if (::pipe2(input.data(), O_CLOEXEC) != 0 || ::pipe2(output.data(), O_CLOEXEC) != 0)
        throw std::runtime_error{"no pipes"};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
    std::string name = program.string();
    std::vector<std::string> words = arguments;
    std::vector<char*> pointers{name.data()};
    for (auto& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const int error = ::posix_spawn(&m_id, name.c_str(), &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(input[0]);
    ::close(output[1]);
    m_input = input[1];
    m_output = output[0];
    if (error != 0) throw std::runtime_error{"cannot start " + name};
    const auto line = readLine();
    if (!line.starts_with("window ")) throw std::runtime_error{name + " shows no window: " + line};
    m_window = static_cast<std::uint32_t>(std::stoul(line.substr(7)));
}

WindowProgram::~WindowProgram() {
    kill();
    ::close(m_input);
    ::close(m_output);
}

void WindowProgram::tell(const std::string& line) const {
    const auto text = line + "\n";
    // One that has ended meanwhile reads nothing; the tests ignore SIGPIPE's cause by asking first.
    if (::write(m_input, text.data(), text.size()) < 0) throw std::runtime_error{"nobody reads"};
}

void WindowProgram::quit() {
    tell("quit");
    ::waitpid(m_id, nullptr, 0);
    m_id = -1;
}

void WindowProgram::kill() {
    if (!isRunning()) return;
    ::kill(m_id, SIGKILL);
    ::waitpid(m_id, nullptr, 0);
    m_id = -1;
}

bool WindowProgram::isRunning() {
    if (m_id > 0 && ::waitpid(m_id, nullptr, WNOHANG) == m_id) m_id = -1;
    return m_id > 0;
}

std::string WindowProgram::readLine() const {
    std::string line;
    for (char character = 0; ::read(m_output, &character, 1) == 1 && character != '\n';)
        line += character;
    return line;
}

} // namespace velmorin
