#pragma once

#include "app/platform/linux/loop/MainLoop.h"
#include "app/platform/linux/services/SessionEnd.h"
#include "app/seams/Application.h"
#include "app/seams/Lifetime.h"
#include "app/seams/Observable.h"

#include <functional>
#include <optional>
#include <string>

namespace velmorin {

/// This program's process on a Linux desktop. Main thread.
class LinuxApplication final : public Application {
public:
    /// `onQuitRequest` is called, from the main loop, for each request to end, by this program or by the session
    /// manager; what it decides is done there. `identifier` may be absent. The loop must outlive this.
    LinuxApplication(MainLoop& loop, std::optional<std::string> identifier, std::function<void()> onQuitRequest);

    std::int32_t processIdentifier() const override;
    const std::optional<std::string>& bundleIdentifier() const override { return m_identifier; }
    void terminate() override;
    /// Nothing: whoever asks a window manager for the front gets it without anyone's leave.
    void yieldActivation(RunningApplication&) override {}
    /// A program that ends a desktop session by a signal alone is not heard here: that is SIGTERM for everyone.
    [[nodiscard]] Cancellable observePowerOff(std::function<void()> call) override;

private:
    MainLoop& m_loop;
    std::optional<std::string> m_identifier;
    std::function<void()> m_onQuitRequest;
    Watchers m_powerOff;
    SessionEnd m_sessionEnd;
    Lifetime m_lifetime;
};

} // namespace velmorin
