#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

namespace velmorin {

/// A running program with windows, driven by its standard input (tests/desktop/test_window.cpp). Ended with this.
class WindowProgram {
public:
    /// Starts it and returns once its first window has been asked for.
    WindowProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments);
    WindowProgram(const WindowProgram&) = delete;
    WindowProgram& operator=(const WindowProgram&) = delete;
    ~WindowProgram();

    std::int32_t processID() const { return m_id; }
    /// The number of the window that it has shown last.
    std::uint32_t window() const { return m_window; }
    /// Sends a line to its input.
    void tell(const std::string& line) const;
    /// Has it end by itself, and waits for that.
    void quit();
    /// Ends it without a word.
    void kill();
    /// Whether it runs.
    bool isRunning();

private:
    std::string readLine() const;

    pid_t m_id = -1;
    int m_input = -1;
    int m_output = -1;
    std::uint32_t m_window = 0;
};

} // namespace velmorin
