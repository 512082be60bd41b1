#pragma once
#include "app/platform/linux/loop/MainLoop.h"
#include "app/seams/Application.h"
#include "app/seams/RelayTransport.h"
#include "app/seams/ServiceManager.h"
#include "app/seams/Shortcuts.h"
#include "app/seams/Sounds.h"

#include <unistd.h>
namespace velmorin {
class PendingApplication final : public Application {
public:
    explicit PendingApplication(MainLoop& loop) : m_loop{loop} {}
    std::int32_t processIdentifier() const override { return ::getpid(); }
    const std::optional<std::string>& bundleIdentifier() const override { return m_id; }
    void terminate() override {
        m_loop.post([this] { onTerminate(); });
    }
    void yieldActivation(RunningApplication&) override {}
    Cancellable observePowerOff(std::function<void()>) override { return {}; }
    std::function<void()> onTerminate;

private:
    MainLoop& m_loop;
    std::optional<std::string> m_id{"com.kestrava.velmorin"};
};
struct NoSounds final : Sounds {
    void play(std::string_view, double) override {}
};
struct NoShortcuts final : Shortcuts {
    void run(const std::string&) override {}
};
struct NoServices final : ServiceManager {
    void install(const std::vector<std::string>&) override {}
    void remove() override {}
};
struct NoRelay final : RelayTransport {
    Cancellable post(const std::string&, const std::string&, double, Answer) override { return {}; }
    Cancellable stream(const std::string&, Line, End) override { return {}; }
};
} // namespace velmorin
