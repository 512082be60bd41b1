#pragma once

#include "app/platform/linux/services/BusConnection.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace velmorin {

/// The Do Not Disturb of the desktop that $XDG_CURRENT_DESKTOP names: the setting of GNOME and of XFCE, which stays
/// until it is changed, and the inhibition of KDE, which this program holds and which ends with it. Another desktop is
/// left alone. Main thread; nothing blocks, no failure is told.
class DoNotDisturb {
public:
    DoNotDisturb();
    DoNotDisturb(const DoNotDisturb&) = delete;
    DoNotDisturb& operator=(const DoNotDisturb&) = delete;
    /// An inhibition ends.
    ~DoNotDisturb();

    void turnOn() { set(true); }
    void turnOff() { set(false); }

private:
    void set(bool isOn);
    void apply(GDBusConnection* connection);
    void tellXFCE(GDBusConnection* connection) const;
    void inhibitKDE(GDBusConnection* connection);
    void releaseKDE(GDBusConnection* connection);
    void take(std::uint32_t cookie);

    enum class Desktop { other, gnome, kde, xfce };
    static Desktop currentDesktop();

    const Desktop m_desktop;
    bool m_isOn = false;
    bool m_isAsking = false;               ///< for an inhibition, whose number has not come
    std::optional<std::uint32_t> m_cookie; ///< the number of the inhibition that is held
    std::unique_ptr<BusConnection> m_bus;  ///< from the first use on
    std::shared_ptr<DoNotDisturb*> m_mark; ///< tells answers whether this is still there
};

} // namespace velmorin
