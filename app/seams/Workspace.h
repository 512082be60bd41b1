#pragma once

#include "app/seams/Cancellable.h"
#include "app/seams/RunningApplication.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// The other applications of the user's session, this program's own process among them. Main thread.
class Workspace {
public:
    using Application = std::shared_ptr<RunningApplication>;
    /// Gets the application, or null where the system could not tell which one it is.
    using Observer = std::function<void(const Application&)>;

    /// Whether an application that is opened comes to the front.
    enum class Opening { activating, inBackground };

    virtual ~Workspace() = default;

    /// The application in front; null when there is none at this instant. Where the desktop itself is always behind the
    /// windows, it counts as the file manager's and is in front when no window is.
    virtual Application frontmostApplication() const = 0;
    /// All of them, hidden ones too, in the system's order.
    virtual std::vector<Application> runningApplications() const = 0;
    /// Those with an identifier, the first one first.
    virtual std::vector<Application> runningApplications(std::string_view bundleID) const = 0;

    /// Tells of every application that comes to the front, by the user or by this program, until the result goes; what
    /// is in front already does not come there. Never from within an operation of this seam. An observer may call
    /// itself or another off.
    [[nodiscard]] virtual Cancellable observeActivations(Observer observer) = 0;
    /// The same for those that start; of one that starts in front it tells here first.
    [[nodiscard]] virtual Cancellable observeLaunches(Observer observer) = 0;

    /// Where an application lies; absent when it is not installed.
    virtual std::optional<std::string> locate(std::string_view bundleID) const = 0;
    /// Starts the application that lies there, as `locate` told. One that runs already is not started again, and comes
    /// to the front where that is asked for. A failure is not reported.
    virtual void open(const std::string& location, Opening opening) = 0;
};

} // namespace velmorin
