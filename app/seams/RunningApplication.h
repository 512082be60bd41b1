#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace velmorin {

/// What part an application has on the desktop.
enum class ActivationPolicy {
    regular,    ///< has windows and stands in the task bar
    accessory,  ///< may have windows, stands nowhere
    prohibited, ///< is never seen
};

/// One process with a face. Held as long as anybody needs it; once the process is gone it keeps its identity and its
/// operations do nothing. None of them reports a failure: who depends on the outcome looks again later. Main thread.
class RunningApplication {
public:
    virtual ~RunningApplication() = default;

    virtual std::int32_t processIdentifier() const = 0;
    /// Absent for a process that belongs to no application the system knows.
    virtual const std::optional<std::string>& bundleIdentifier() const = 0;
    /// The name for people, in their language; absent when there is none.
    virtual const std::optional<std::string>& localizedName() const = 0;
    virtual ActivationPolicy activationPolicy() const = 0;
    virtual bool isHidden() const = 0;

    /// Takes all its windows off the screen without closing any. What was in front gives the front to another.
    virtual void hide() = 0;
    /// Shows them again, behind what is in front.
    virtual void unhide() = 0;
    /// Asks it to quit, as its own menu would. It may ask back, or ignore it. Never forced.
    virtual void terminate() = 0;
    /// Brings it to the front, shown. The caller has yielded before.
    virtual void activate() = 0;
};

} // namespace velmorin
