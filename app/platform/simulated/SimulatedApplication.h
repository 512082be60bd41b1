#pragma once

#include "app/platform/simulated/VirtualTime.h"
#include "app/seams/Application.h"
#include "app/seams/Observable.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace velmorin {

/// The process of the program itself, one object for each life.
class SimulatedApplication final : public Application {
public:
    SimulatedApplication(std::int32_t pid, std::optional<std::string> bundleID)
        : m_pid{pid}, m_bundleID{std::move(bundleID)} {}

    std::int32_t processIdentifier() const override { return m_pid; }
    const std::optional<std::string>& bundleIdentifier() const override { return m_bundleID; }
    void terminate() override {
        if (onTerminate) onTerminate();
    }
    void yieldActivation(RunningApplication& other) override {
        if (onYield) onYield(other);
    }
    Cancellable observePowerOff(std::function<void()> call) override { return m_powerOff.add(std::move(call)); }

    // The control side.

    std::function<void()> onTerminate;                ///< the program asks to end
    std::function<void(RunningApplication&)> onYield; ///< the program lets another application take the front
    void announcePowerOff() { m_powerOff.notify(); }

private:
    std::int32_t m_pid;
    std::optional<std::string> m_bundleID;
    Watchers m_powerOff;
};

} // namespace velmorin
