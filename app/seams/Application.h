#pragma once

#include "app/seams/Cancellable.h"
#include "app/seams/RunningApplication.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace velmorin {

/// This program's own process. Main thread.
class Application {
public:
    virtual ~Application() = default;

    virtual std::int32_t processIdentifier() const = 0; ///< above 0
    /// This program's own identifier; absent where it was started as a bare executable.
    virtual const std::optional<std::string>& bundleIdentifier() const = 0;

    /// Asks the program to end, as any other request to quit would: its own answer decides. Ends it, if so, once the
    /// present work is done.
    virtual void terminate() = 0;
    /// Lets another application take the front, which a program that is in front must do before it asks for that.
    virtual void yieldActivation(RunningApplication& other) = 0;
    /// Tells each time when the system announces that it shuts down, restarts or logs the user out, until the result
    /// goes.
    [[nodiscard]] virtual Cancellable observePowerOff(std::function<void()> call) = 0;
};

} // namespace velmorin
