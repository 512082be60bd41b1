#pragma once

#include "app/seams/ChildProcesses.h"

#include <functional>
#include <string>
#include <vector>

namespace velmorin {

/// Child processes of which none is ever started: those that are waited for are written down, the others have no end.
class RecordingChildProcesses final : public ChildProcesses {
public:
    void run(const std::string&, const Arguments&, double, Completion) override {}
    void start(const std::string&, const Arguments&) override {}
    void runAndWait(const std::string& executable, const Arguments& arguments) override {
        std::string line = executable;
        for (const auto& argument : arguments)
            line += " [" + argument + "]";
        lines.push_back(line);
        if (whileWaiting) whileWaiting();
    }

    /// The control side: each command line, as in "/bin/tool [one argument] [another]".
    std::vector<std::string> lines;
    std::function<void()> whileWaiting; ///< called for each, once it is written down
};

} // namespace velmorin
