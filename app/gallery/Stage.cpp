#include "app/gallery/Stage.h"

#include "app/strings/LinuxStrings.h"
#include "core/phone/PhoneWire.h"

#include <string>
#include <utility>

namespace velmorin {

namespace {

constexpr std::int32_t editor = 10;
constexpr std::size_t nonceLength = 12;
constexpr const char* editorID = "org.example.editor";

} // namespace

Stage::Stage(Files& files, std::filesystem::path directory, Date start)
    : desktop{start, files},
      application{SimulatedWorkspace::firstOwnPID, "com.kestrava.velmorin"},
      data{JSONStore{std::move(directory), desktop.disk},
           {desktop.time, desktop.time, desktop.random, desktop.relay, Appearance::shared()}},
      controller{data,
                 {desktop.time, desktop.time, desktop.random, desktop.workspace, application, desktop.sounds,
                  desktop.shortcuts, desktop.serviceManager, desktop.browsers, Appearance::shared(),
                  SimulatedBrowsers::scriptTool}},
      context{data,
              controller,
              Appearance::shared(),
              desktop.time,
              desktop.time,
              desktop.workspace,
              desktop.installedApplications,
              Calendar::inTimeZone("UTC").value(),
              application.bundleIdentifier(),
              {}},
      session{context},
      main{context} {
    context.thoughtKeys = &LinuxStrings::thoughtKeys;
    Appearance::shared().apply(*data.settings());
    desktop.workspace.add({editor, editorID, "Editor"});
    desktop.workspace.startInFront(editor);
}

void Stage::wear(AppLanguage language, ColorTheme theme) {
    AppSettings settings = *data.settings();
    settings.language = language;
    settings.colorTheme = theme;
    data.setSettings(settings);
}

Profile Stage::profile(SessionMode mode) {
    Profile made{"Work", mode};
    made.allowedApps.push_back({editorID, "Editor"});
    return made;
}

void Stage::startSession(const Profile& profile, std::string_view intent) {
    controller.start(profile, intent);
    desktop.time.settle();
    advance(3);
}

void Stage::push(std::string_view name) {
    auto& workspace = desktop.workspace;
    const std::int32_t pid = workspace.unusedPID();
    workspace.add({pid, "org.example.other" + std::to_string(pid), std::string{name}});
    workspace.activate(pid);
    desktop.time.settle();
}

void Stage::pairPhone() {
    data.phoneLink().beginPairing();
    desktop.time.settle();
    const PhonePairing pairing = data.phoneLink().pairing().value();
    constexpr std::string_view hello = R"({"v":1,"type":"hello"})";
    const Bytes plaintext{hello.begin(), hello.end()};
    const auto sealed = PhoneWire::seal(plaintext, pairing.key, PhoneWire::status, desktop.random.bytes(nonceLength));
    desktop.relay.publish(pairing.statusTopic(), sealed.value());
    desktop.time.settle();
}

} // namespace velmorin
