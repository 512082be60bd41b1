#pragma once

#include "app/platform/linux/services/BusConnection.h"

#include <functional>
#include <memory>

namespace velmorin {

/// Whether a part of the desktop shows the icons that programs announce on the session bus (StatusNotifierItem). Main
/// thread.
class StatusNotifierHost {
public:
    /// Calls when one is there: soon, where it is there now, and each time that one comes.
    explicit StatusNotifierHost(std::function<void()> call);
    StatusNotifierHost(const StatusNotifierHost&) = delete;
    StatusNotifierHost& operator=(const StatusNotifierHost&) = delete;
    ~StatusNotifierHost();

private:
    void watch(GDBusConnection* connection);
    void ask(const char* owner);

    std::function<void()> m_call;
    unsigned m_watch = 0;
    SignalSubscription m_signals;
    std::shared_ptr<StatusNotifierHost*> m_mark = std::make_shared<StatusNotifierHost*>(this);
    BusConnection m_bus; ///< calls the others, so it goes first
};

} // namespace velmorin
