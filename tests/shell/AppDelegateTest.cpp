#include "tests/shell/AppDelegateTest.h"

#include "core/foundation/JSONCoding.h"
#include "core/phone/PhoneWire.h"

#include <utility>

namespace velmorin {

namespace {

const PhonePairing phone{Bytes(16, 1), Bytes(32, 2)};

} // namespace

AppDelegateTest::AppDelegateTest() {
    onEvent = [this](const SimulatedEvent& event) {
        if (event.name == "log") shell.step("log " + log().back());
        if (event.name == "installWatchdog" || event.name == "listen" || event.name == "open") shell.step(event.name);
    };
}

AppDelegateTest::~AppDelegateTest() = default;

void AppDelegateTest::launchProgram(LaunchedBy by) {
    auto& machine = desktop();
    m_hasEnded = false;
    m_appearance = std::make_unique<Appearance>();
    m_application = std::make_unique<SimulatedApplication>(ownPID, setup.bundleID);
    machine.workspace.add({ownPID, setup.bundleID, std::nullopt, ActivationPolicy::accessory});
    AppDelegate::Seams seams{
        setup.directory,
        machine.disk,
        {machine.time, machine.time, machine.random, machine.relay, *m_appearance},
        {machine.time, machine.time, machine.random, machine.workspace, *m_application, machine.sounds,
         machine.shortcuts, machine.serviceManager, machine.browsers, *m_appearance, SimulatedBrowsers::scriptTool},
        machine.installedApplications,
        *Calendar::inTimeZone("UTC"),
        {},
        nullptr,
        [](AppLanguage) -> std::string_view { return "Ctrl+Alt+T"; },
    };
    options.launchedByWatchdog = by == LaunchedBy::watchdog;
    m_program = std::make_unique<AppDelegate>(options, std::move(seams), shell);
    m_application->onTerminate = [this] {
        m_hasEnded = m_program->applicationShouldTerminate() == AppDelegate::TerminateReply::now;
    };
    m_program->applicationDidFinishLaunching();
    settle();
}

void AppDelegateTest::killProgram() {
    m_program.reset();
    desktop().workspace.quit(ownPID);
    shell = FakeShell{};
}

void AppDelegateTest::startSession(SessionMode mode) {
    controller().start(profile(mode), "write");
    settle();
}

void AppDelegateTest::changeSettings(const std::function<void(AppSettings&)>& change) {
    auto settings = *data().settings();
    change(settings);
    data().setSettings(settings);
}

void AppDelegateTest::leaveSettings(const AppSettings& settings) {
    writeFile(AppData::settingsFile, *encodeJSON(settings));
}

void AppDelegateTest::leavePairing() {
    writeFile(PhoneLink::fileName, R"({"pairing":)" + *encodeJSON(phone) + R"(,"isConfirmed":true})");
}

void AppDelegateTest::hearPhone(std::string_view type, const UUID& session) {
    const std::string message = R"({"type":")" + std::string{type} + R"(","id":")" + session.text() + R"("})";
    const auto sealed = PhoneWire::seal({message.begin(), message.end()}, phone.key, PhoneWire::status);
    desktop().relay.publish(phone.statusTopic(), sealed.value_or(""));
    settle();
}

std::vector<std::string> AppDelegateTest::sentToPhone() {
    std::vector<std::string> types;
    for (const auto& sealed : desktop().relay.messages(phone.commandTopic())) {
        const auto opened = PhoneWire::open(sealed, phone.key, PhoneWire::command).value_or(Bytes{});
        const auto members = JSONMembers::parse(std::string{opened.begin(), opened.end()});
        types.push_back(members ? members->get<std::string>("type").value_or("") : "cannot be opened");
    }
    return types;
}

std::vector<std::string> AppDelegateTest::statusMenu() {
    Menu menu;
    shell.item.calls.menuNeedsUpdate(menu);
    std::vector<std::string> rows;
    for (const auto& item : menu.items) {
        EXPECT_FALSE(item.key) << "the status menu has no keys";
        rows.push_back(item.isSeparator ? "—" : item.isEnabled() ? item.text : "(" + item.text + ")");
    }
    return rows;
}

} // namespace velmorin
