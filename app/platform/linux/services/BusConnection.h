#pragma once

#include "app/platform/linux/loop/GLibPointers.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace velmorin {

enum class Bus { system, session };

/// Where a bus is, as the environment or the usual place tells; absent where there is none. Starts nothing.
std::optional<std::string> busAddress(Bus bus);

/// A connection of its own to a message bus, made on the main loop without holding anything up. Where there is no bus,
/// or it goes, nothing happens. Main thread.
class BusConnection {
public:
    using Ready = std::function<void(GDBusConnection*)>;
    using Handler = std::function<void(const char* member, GVariant* parameters)>;

    /// Calls `ready` once, later, when the connection is made, unless this is gone by then.
    BusConnection(Bus bus, Ready ready);
    BusConnection(const BusConnection&) = delete;
    BusConnection& operator=(const BusConnection&) = delete;
    ~BusConnection();

    /// Null as long as there is none.
    GDBusConnection* get() const;

private:
    struct State;

    std::shared_ptr<State> m_state;
};

/// A call of a method on a message bus.
struct BusCall {
    const char* name;
    const char* path;
    const char* interface;
    const char* method;
    GVariant* parameters; ///< taken by whoever makes the call
};

/// Makes a call and returns when it is answered, at the latest after `patience` seconds. False where nobody has
/// answered by then, or with an error. `connection` may be null: one of this call's own is made then. Nothing else of
/// the program is called meanwhile. Main thread.
bool callAndWait(Bus bus, GDBusConnection* connection, const BusCall& call, double patience);

/// Signals of one object, handed on until this goes.
class SignalSubscription {
public:
    using Handler = BusConnection::Handler;

    SignalSubscription() = default;
    SignalSubscription(GDBusConnection* connection, const char* sender, const char* path, const char* interface,
                       Handler handler);
    SignalSubscription(SignalSubscription&& other) noexcept;
    SignalSubscription& operator=(SignalSubscription&& other) noexcept;
    SignalSubscription(const SignalSubscription&) = delete;
    SignalSubscription& operator=(const SignalSubscription&) = delete;
    ~SignalSubscription();

private:
    void end();

    GOwned<GDBusConnection> m_connection;
    unsigned m_number = 0;
};

} // namespace velmorin
