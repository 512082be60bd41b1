#pragma once

#include "app/platform/linux/services/BusConnection.h"
#include "app/seams/MotionPreference.h"

#include <memory>
#include <string>

namespace velmorin {

/// What the desktop says of animations: its settings portal on the session bus; where there is none, GNOME's own
/// settings; and KDE's file of settings on a desktop of KDE. One that wants none is enough. What is said comes later
/// than the making of this, which waits for nobody, and changes are followed. Main thread.
class DesktopMotion final : public MotionPreference {
public:
    DesktopMotion();
    DesktopMotion(const DesktopMotion&) = delete;
    DesktopMotion& operator=(const DesktopMotion&) = delete;
    ~DesktopMotion() override;

    const Observable<bool>& reducesMotion() const override { return m_reduces; }

private:
    void askPortal(GDBusConnection* connection);
    void take(GVariant* namespaces);
    void take(const std::string& space, const std::string& key, GVariant* value);
    void followGNOME();
    void readGNOME();
    void followKDE();
    void readKDE();
    void settle();

    // Who wants no animations.
    bool m_isPortalStill = false; ///< by GNOME's key
    bool m_isReduced = false;     ///< by the desktops' common key
    bool m_isKDEStill = false;
    Observable<bool> m_reduces{false};

    GOwned<GSettings> m_settings; ///< null where the portal has spoken
    GOwned<GFileMonitor> m_file;  ///< null on other desktops than KDE
    SignalSubscription m_changes;
    std::shared_ptr<DesktopMotion*> m_mark; ///< for answers that come when this has gone
    BusConnection m_bus;
};

} // namespace velmorin
