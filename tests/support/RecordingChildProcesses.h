#pragma once

#include "app/seams/ChildProcesses.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// Child processes of which none is ever started: those that are waited for are written down, the others have no end.
class RecordingChildProcesses final : public ChildProcesses {
public:
    /// Nothing is run to its end here, so nobody is ever told.
    void run(const std::string& executable, const Arguments& arguments, double, Completion) override {
        write("run", executable, arguments);
    }
    void start(const std::string& executable, const Arguments& arguments) override {
        write("start", executable, arguments);
    }
    void runAndWait(const std::string& executable, const Arguments& arguments) override {
        write("", executable, arguments);
        if (whileWaiting) whileWaiting();
    }

    /// The control side: each command line, as in "/bin/tool [one argument] [another]", with "start" or "run" in front
    /// where nobody waits for it.
    std::vector<std::string> lines;
    std::function<void()> whileWaiting; ///< called for each that is waited for, once it is written down

private:
    void write(std::string_view how, const std::string& executable, const Arguments& arguments) {
        std::string line = how.empty() ? executable : std::string{how} + " " + executable;
        for (const auto& argument : arguments)
            line += " [" + argument + "]";
        lines.push_back(line);
    }
};

} // namespace velmorin
