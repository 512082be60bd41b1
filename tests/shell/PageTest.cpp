#include "tests/shell/PageTest.h"

#include "app/shell/Text.h"

namespace velmorin {

PageTest::PageTest()
    : data{JSONStore{"/data/Velmorin", desktop.disk},
           {desktop.time, desktop.time, desktop.random, desktop.relay, appearance}},
      controller{data,
                 {desktop.time, desktop.time, desktop.random, desktop.workspace, application, desktop.sounds,
                  desktop.shortcuts, desktop.serviceManager, desktop.browsers, appearance,
                  SimulatedBrowsers::scriptTool}},
      context{data,
              controller,
              appearance,
              desktop.time,
              desktop.time,
              desktop.workspace,
              desktop.installedApplications,
              Calendar::inTimeZone("UTC").value(),
              application.bundleIdentifier(),
              {},
              &setup} {
    speak(AppLanguage::english);
}

void PageTest::speak(AppLanguage language) {
    auto settings = *data.settings();
    settings.language = language;
    data.setSettings(settings);
}

QString PageTest::text(std::string_view utf8) {
    return toQString(utf8);
}

} // namespace velmorin
