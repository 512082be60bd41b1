// velmorin-lock: a session on this desktop, without a window.

#include "app/composition/LinuxInstance.h"
#include "app/composition/LinuxSeams.h"
#include "app/composition/OwnProcess.h"
#include "app/engine/AppCatalog.h"
#include "app/engine/StateWriting.h"
#include "app/lock/LinePrinter.h"
#include "app/lock/LockOptions.h"
#include "app/lock/LockProgram.h"
#include "app/lock/ProfileReading.h"
#include "core/foundation/JSONArguments.h"

#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

namespace velmorin {

namespace {

constexpr int malformed = 2;

Profile readProfileFile(const std::filesystem::path& path) {
    std::ifstream file{path};
    if (!file || std::filesystem::is_directory(path)) throw MalformedInput{path.string() + " cannot be read"};
    const std::string text{std::istreambuf_iterator<char>{file}, {}};
    try {
        return readProfile(text, path.stem().string());
    } catch (const MalformedInput& wrong) {
        throw MalformedInput{path.string() + ": " + wrong.what()};
    }
}

void print(JSONOutput& output) {
    std::cout << output.take().value_or("{}") << '\n';
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
        print(output);
    }
}

void listCatalogue(const LinuxSeams& seams) {
    constexpr int iconSize = 64; // pixels
    const auto apps =
        AppCatalog::scan(seams.installedApplications, seams.workspace, LinuxSeams::bundleID, AppLanguage::english);
    for (const auto& app : apps) {
        JSONOutput output;
        output.beginObject();
        writeMember(output, "bundleID", app.bundleID);
        writeMember(output, "name", app.name);
        writeMember(output, "path", app.path);
        writeMember(output, "icon", seams.installedApplications.iconFile(app.path, iconSize));
        output.endObject();
        print(output);
    }
}

/// A second start asks the first one to show itself, and ends.
int handOver(const LinuxInstance& instance, const LockOptions& options) {
    if (options.launch.launchedByWatchdog) return EXIT_SUCCESS;
    if (!instance.askOtherToShow()) {
        std::cerr << "velmorin-lock: it runs already, but does not answer\n";
        return EXIT_FAILURE;
    }
    std::cerr
        << "velmorin-lock: it runs already, and tells how it stands where it was started. To speak to it, write to\n"
           "the pipe \"commands\" in its store, as in: echo show > ~/.local/share/Velmorin/commands\n";
    return EXIT_FAILURE;
}

int hold(LinuxSeams& seams, const LockOptions& options, const std::optional<Profile>& profile) {
    const auto& directory = seams.directory;
    LinuxInstance instance{seams.loop, seams.places, directory};
    if (!instance.isOnly()) return handOver(instance, options);
    if (::access(directory.c_str(), W_OK) != 0) throw MalformedInput{"nothing can be written to " + directory.string()};
    LinePrinter printer{STDOUT_FILENO};
    LockProgram program{seams, options, profile, [&printer](const std::string& line) { printer.print(line); }};
    instance.onShow([&program] { program.show(); });
    return program.run();
}

int run(const LockOptions& options) {
    if (options.asksForHelp) {
        std::cout << LockOptions::usage();
        return EXIT_SUCCESS;
    }
    const auto profile = options.profile ? std::optional{readProfileFile(*options.profile)} : std::nullopt;
    const auto places = LinuxPlaces::ofThisProcess();
    OwnProcess::takeName(places);
    OwnProcess::forgetStart();
    MainLoop loop;
    auto display = X11Connection::open(loop);
    if (!display) throw MalformedInput{"there is no X11 display to run a session on"};
    const auto directory = options.launch.homeDirectory.value_or(JSONStore::defaultDirectory(places.data));
    LinuxSeams seams{places, directory, loop, std::move(display)};
    seams.connection->onLost = [&loop] { loop.quit(EXIT_FAILURE); };
    if (options.listsApplications) listApplications(seams.workspace);
    if (options.listsCatalogue) listCatalogue(seams);
    if (options.listsApplications || options.listsCatalogue) return EXIT_SUCCESS;
    return hold(seams, options, profile);
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
