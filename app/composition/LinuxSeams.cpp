#include "app/composition/LinuxSeams.h"

#include <utility>

namespace velmorin {

LinuxSeams::LinuxSeams(LinuxPlaces where, std::filesystem::path storeDirectory, MainLoop& mainLoop,
                       std::unique_ptr<X11Connection> display)
    : places{std::move(where)},
      directory{std::move(storeDirectory)},
      loop{mainLoop},
      childProcesses{[this](std::function<void()> call) { loop.post(std::move(call)); }},
      connection{std::move(display)},
      identities{entries, processes},
      launcher{entries},
      installedApplications{entries, icons},
      workspace{*connection, {identities, processes, launcher, ApplicationIdentity{bundleID, "Dravoni", std::nullopt}}},
      application{loop, bundleID,
                  [this] {
                      if (onQuitRequest) onQuitRequest();
                  }},
      sounds{places.resources("sounds"), files},
      shortcuts{directory / "shortcuts", childProcesses},
      serviceManager{{places.program.filename().string(), places.program, places.companion("velmorin-watchdog"),
                      places.configuration, places.runtime},
                     childProcesses,
                     files},
      browserSetup{places.companion("velmorin-browser-host"), places.browserExtension()} {}

} // namespace velmorin
