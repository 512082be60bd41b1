#pragma once

#include "app/seams/Cancellable.h"

#include <functional>
#include <optional>
#include <string>

namespace velmorin {

/// HTTP as the phone link needs it: without accounts, cookies or headers of the program's own. All calls come on the
/// main thread, never from within the operation that asks for them, and never after the result was cancelled.
class RelayTransport {
public:
    /// The HTTP status of the answer; absent when none came.
    using Answer = std::function<void(std::optional<int> status)>;
    using Line = std::function<void(std::string line)>;
    using End = std::function<void()>;

    virtual ~RelayTransport() = default;

    /// Posts a body byte for byte and gives the answer exactly once, at the latest after `timeout` seconds, which then
    /// is none.
    [[nodiscard]] virtual Cancellable post(const std::string& url, const std::string& body, double timeout,
                                           Answer answer) = 0;
    /// Opens a stream and gives each line of its body, without the line end, as it arrives, empty ones too. `end` comes
    /// once and last, when the stream has ended or could not be opened, whatever the status. Either call may cancel the
    /// stream or open another.
    [[nodiscard]] virtual Cancellable stream(const std::string& url, Line line, End end) = 0;
};

} // namespace velmorin
