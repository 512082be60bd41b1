#pragma once

#include "app/platform/linux/applications/ApplicationIdentities.h"
#include "app/platform/linux/x11/X11Desk.h"
#include "app/seams/RunningApplication.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>
#include <xcb/xcb.h>

namespace velmorin {

/// A process with windows, as long as it has any, and this program itself. Its workspace keeps it up to date.
class X11Application final : public RunningApplication {
public:
    /// `number` is the process identifier.
    X11Application(std::weak_ptr<X11Desk> desk, std::int32_t number);

    std::int32_t processIdentifier() const override { return m_number; }
    const std::optional<std::string>& bundleIdentifier() const override { return m_identity.bundleID; }
    const std::optional<std::string>& localizedName() const override { return m_identity.name; }
    /// Regular once it has had a window of its own, whether the taskbar shows it or not: a terminal that drops down
    /// from the edge of the screen is as much an application as another.
    ActivationPolicy activationPolicy() const override;
    bool isHidden() const override;

    void hide() override;
    void unhide() override;
    void terminate() override;
    void activate() override;

    const ApplicationIdentity& identity() const { return m_identity; }
    void setIdentity(ApplicationIdentity identity) { m_identity = std::move(identity); }
    const std::vector<xcb_window_t>& windows() const { return m_windows; }
    void setWindows(std::vector<xcb_window_t> windows);

private:
    std::weak_ptr<X11Desk> m_desk;
    std::int32_t m_number;
    ApplicationIdentity m_identity;
    std::vector<xcb_window_t> m_windows; ///< those of an application's roles
    bool m_isRegular = false;
};

/// A part of the desktop itself that may be in front: its background, a panel, a message. Told by what its window is,
/// it stands in no list, cannot be hidden and never quits.
class X11DesktopPart final : public RunningApplication {
public:
    explicit X11DesktopPart(std::string bundleID) : m_bundleID{std::move(bundleID)} {}

    std::int32_t processIdentifier() const override { return 0; }
    const std::optional<std::string>& bundleIdentifier() const override { return m_bundleID; }
    const std::optional<std::string>& localizedName() const override { return m_name; }
    ActivationPolicy activationPolicy() const override { return ActivationPolicy::accessory; }
    bool isHidden() const override { return false; }

    void hide() override {}
    void unhide() override {}
    void terminate() override {}
    void activate() override {}

private:
    std::optional<std::string> m_bundleID;
    std::optional<std::string> m_name;
};

} // namespace velmorin
