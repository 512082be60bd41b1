#pragma once

#include "app/seams/Clock.h"
#include "core/foundation/JSONOutput.h"

#include <functional>
#include <string>
#include <string_view>

namespace velmorin {

/// Something that happened on the simulated desktop.
struct SimulatedEvent {
    double time = 0;     ///< seconds of virtual time since the start of the scene
    std::string name;    ///< as in "hide"
    std::string details; ///< its further keys and their values, as they stand inside a JSON object

    /// The event as one JSON object.
    std::string line() const;

    bool operator==(const SimulatedEvent&) const = default;
};

/// Where the simulated platform and the program tell what happens. The control side reads it; the engine cannot see it.
class Journal {
public:
    using Time = std::function<double()>;
    using Details = std::function<void(JSONOutput&)>;

    /// `time` gives the virtual time in seconds.
    explicit Journal(Time time) : m_time{std::move(time)} {}

    /// `details` writes the members of the event. A text in it that is not UTF-8 leaves all of them out.
    void tell(std::string_view name, const Details& details = {}) const;

    std::function<void(const SimulatedEvent&)> onEvent; ///< called for each event, in order

private:
    Time m_time;
};

} // namespace velmorin
