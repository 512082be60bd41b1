#pragma once

#include "app/platform/linux/services/BusConnection.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace velmorin {

/// The Do Not Disturb of the desktop that $XDG_CURRENT_DESKTOP names: the setting of GNOME and of XFCE, which stays
/// until it is changed, and the inhibition of KDE, which this program holds and which ends with it. Another desktop is
/// left alone. Main thread; nothing blocks but the end of this, no failure is told.
class DoNotDisturb {
public:
    DoNotDisturb();
    DoNotDisturb(const DoNotDisturb&) = delete;
    DoNotDisturb& operator=(const DoNotDisturb&) = delete;
    /// An inhibition ends. A setting that was asked for has arrived when this returns, unless that takes longer than
    /// `patience`: the program may end right after.
    ~DoNotDisturb();

    static constexpr double patience = 1; ///< seconds

    void turnOn() { set(true); }
    void turnOff() { set(false); }

private:
    void set(bool isOn);
    void apply(GDBusConnection* connection);
    BusCall changeOfXFCE() const;
    void tellXFCE(GDBusConnection* connection);
    void inhibitKDE(GDBusConnection* connection);
    void releaseKDE(GDBusConnection* connection);
    void take(std::uint32_t cookie);

    enum class Desktop { other, gnome, kde, xfce };
    static Desktop currentDesktop();

    const Desktop m_desktop;
    bool m_isOn = false;
    unsigned m_asked = 0;                  ///< how often something was asked for
    unsigned m_answered = 0;               ///< how much of it is known to have arrived; only XFCE tells
    bool m_isAsking = false;               ///< for an inhibition, whose number has not come
    std::optional<std::uint32_t> m_cookie; ///< the number of the inhibition that is held
    std::unique_ptr<BusConnection> m_bus;  ///< from the first use on
    std::shared_ptr<DoNotDisturb*> m_mark; ///< tells answers whether this is still there
};

} // namespace velmorin
