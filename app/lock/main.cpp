// velmorin-lock: a session on this desktop, without a window.

#include "app/engine/StateWriting.h"
#include "app/lock/LinuxSeams.h"
#include "app/lock/LockOptions.h"
#include "app/lock/LockProgram.h"
#include "app/platform/linux/services/SingleInstance.h"
#include "core/foundation/JSONArguments.h"

#include <csignal>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {

namespace {

constexpr int malformed = 2;

Profile readProfile(const std::filesystem::path& path) {
    std::ifstream file{path};
    if (!file || std::filesystem::is_directory(path)) throw MalformedInput{path.string() + " cannot be read"};
    const std::string text{std::istreambuf_iterator<char>{file}, {}};
    return readOver(Profile{path.stem().string(), SessionMode::pomodoro}, text, "profile");
}

void print(const std::string& line) {
    std::cout << line << std::endl;
}

void listApplications(const Workspace& workspace) {
    for (const auto& application : workspace.runningApplications()) {
        JSONOutput output;
        output.beginObject();
        writeMember(output, "pid", std::int64_t{application->processIdentifier()});
        writeMember(output, "bundleID", application->bundleIdentifier());
        writeMember(output, "name", application->localizedName());
        writeMember(output, "isRegular", application->activationPolicy() == ActivationPolicy::regular);
        writeMember(output, "isHidden", application->isHidden());
        output.endObject();
        print(output.take().value_or("{}"));
    }
}

int run(const LockOptions& options) {
    if (options.asksForHelp) {
        std::cout << LockOptions::usage();
        return EXIT_SUCCESS;
    }
    const auto profile = options.profile ? std::optional{readProfile(*options.profile)} : std::nullopt;
    const auto places = LinuxPlaces::ofThisProcess();
    MainLoop loop;
    auto display = X11Connection::open(loop);
    if (!display) throw MalformedInput{"there is no X11 display to run a session on"};
    // Whoever reads the events may go; the session goes on.
    std::signal(SIGPIPE, SIG_IGN);
    const auto directory = options.launch.homeDirectory.value_or(JSONStore::defaultDirectory(places.data));
    const SingleInstance instance{loop, directory};
    if (!instance.isFirst() && !options.listsApplications) {
        // The one that runs has the session.
        std::cerr << "velmorin-lock: it runs already\n";
        return options.launch.launchedByWatchdog ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    LinuxSeams seams{places, directory, loop, std::move(display)};
    seams.connection->onLost = [&loop] { loop.quit(EXIT_FAILURE); };
    if (options.listsApplications) {
        listApplications(seams.workspace);
        return EXIT_SUCCESS;
    }
    LockProgram program{seams, options, profile, print};
    return program.run();
}

} // namespace

} // namespace velmorin

int main(int count, char** words) {
    const std::vector<std::string> arguments{words + 1, words + count};
    try {
        return velmorin::run(velmorin::LockOptions::parse(arguments));
    } catch (const velmorin::MalformedInput& wrong) {
        std::cerr << "velmorin-lock: " << wrong.what() << "\nTry velmorin-lock --help.\n";
        return velmorin::malformed;
    } catch (const std::exception& failure) {
        std::cerr << "velmorin-lock: " << failure.what() << '\n';
        return EXIT_FAILURE;
    }
}
