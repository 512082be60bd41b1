// Velmorin: the program with its windows, on a Linux desktop.

#include "app/composition/LinuxInstance.h"
#include "app/composition/LinuxSeams.h"
#include "app/composition/OwnProcess.h"
#include "app/engine/LaunchOptions.h"
#include "app/platform/linux/applications/IdentityTable.h"
#include "app/platform/posix/SystemCalendar.h"
#include "app/program/LinuxShell.h"
#include "app/program/Toolkit.h"
#include "app/screens/components/AppFonts.h"
#include "app/shell/AppDelegate.h"
#include "app/strings/LinuxStrings.h"

#include <QApplication>
#include <QFont>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <vector>

namespace velmorin {

namespace {

AppDelegate::Seams delegateSeams(LinuxSeams& seams, Appearance& appearance) {
    return {
        seams.directory,
        seams.files,
        {seams.clock, seams.timers, seams.random, seams.relay, appearance},
        {seams.clock, seams.timers, seams.random, seams.workspace, seams.application, seams.sounds, seams.shortcuts,
         seams.serviceManager, seams.childProcesses, appearance,
         seams.places.companion("velmorin-browser-script").string()},
        seams.installedApplications,
        systemCalendar(),
        {&IdentityTable::isEscapeHatch, &IdentityTable::isUnsupportedBrowser},
        &seams.browserSetup,
        &LinuxStrings::thoughtKeys,
    };
}

/// Runs the program that owns this process, until it ends.
int runDelegate(LaunchOptions options, LinuxSeams& seams, LinuxInstance& instance) {
    auto& appearance = Appearance::shared();
    appearance.setTexts(&LinuxStrings::of);
    LinuxShell shell{{seams.loop, *seams.connection, seams.timers, appearance, seams.places.resources("icons"),
                      LinuxSeams::bundleID, !options.launchedByWatchdog}};
    AppFonts::registerFonts(QString::fromStdString(seams.places.resources("Fonts").string()));
    QApplication::setFont(QFont{AppFonts::family()});
    AppDelegate delegate{std::move(options), delegateSeams(seams, appearance), shell};
    const auto askToQuit = [&delegate] {
        if (delegate.applicationShouldTerminate() == AppDelegate::TerminateReply::now) QCoreApplication::exit();
    };
    seams.onQuitRequest = askToQuit;
    std::vector<Cancellable> endings;
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        endings.push_back(seams.loop.watchSignal(number, askToQuit));
    OwnProcess::ignoreStops();
    instance.onShow([&delegate] { delegate.applicationShouldHandleReopen(); });
    // Once the loop runs: what the launch asks for may end it.
    seams.loop.post([&delegate] { delegate.applicationDidFinishLaunching(); });
    return QCoreApplication::exec();
}

/// A second start asks the first one to show itself, and ends.
int handOver(const LinuxInstance& instance, const LaunchOptions& options) {
    if (options.launchedByWatchdog || instance.askOtherToShow()) return EXIT_SUCCESS;
    std::cerr << "Velmorin: it runs already, but does not answer\n";
    return EXIT_FAILURE;
}

int run(int& count, char** words) {
    auto options = LaunchOptions::parse(std::vector<std::string>{words + 1, words + count});
    const auto places = LinuxPlaces::ofThisProcess();
    OwnProcess::takeName(places);
    OwnProcess::forgetStart();
    MainLoop loop;
    const auto directory = options.homeDirectory.value_or(JSONStore::defaultDirectory(places.data));
    LinuxInstance instance{loop, places, directory};
    if (!instance.isOnly()) return handOver(instance, options);
    auto display = X11Connection::open(loop);
    if (!display) {
        std::cerr << "Velmorin: there is no X11 display to show anything on\n";
        return EXIT_FAILURE;
    }
    const auto application = Toolkit::makeApplication(words[0], LinuxSeams::bundleID);
    LinuxSeams seams{places, directory, loop, std::move(display)};
    seams.connection->onLost = [] { QCoreApplication::exit(EXIT_FAILURE); };
    return runDelegate(std::move(options), seams, instance);
}

} // namespace

} // namespace velmorin

int main(int count, char** words) {
    try {
        return velmorin::run(count, words);
    } catch (const std::exception& failure) {
        std::cerr << "Velmorin: " << failure.what() << '\n';
        return EXIT_FAILURE;
    }
}
