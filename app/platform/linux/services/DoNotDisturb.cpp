#include "app/platform/linux/services/DoNotDisturb.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <future>
#include <string_view>
#include <thread>
#include <utility>

namespace velmorin {

namespace {

constexpr const char* notifications = "org.freedesktop.Notifications";
constexpr const char* notificationsPath = "/org/freedesktop/Notifications";

struct DropSchema {
    void operator()(GSettingsSchema* schema) const { g_settings_schema_unref(schema); }
};

/// Notifications of GNOME pop up, or wait in their list.
void showBanners(bool isShown) {
    constexpr const char* name = "org.gnome.desktop.notifications";
    constexpr const char* key = "show-banners";
    auto* source = g_settings_schema_source_get_default();
    if (source == nullptr) return;
    const std::unique_ptr<GSettingsSchema, DropSchema> schema{g_settings_schema_source_lookup(source, name, TRUE)};
    // Settings of a schema that is missing would end the program.
    if (!schema || g_settings_schema_has_key(schema.get(), key) == FALSE) return;
    const GOwned<GSettings> settings{g_settings_new_full(schema.get(), nullptr, nullptr)};
    g_settings_set_boolean(settings.get(), key, isShown ? TRUE : FALSE);
}

/// What was set reaches those who keep the settings; they are waited for no longer than `patience`.
void flushSettings(double patience) {
    std::promise<void> done;
    const auto isDone = done.get_future();
    // It cannot be called off: a thread that still waits for somebody who hangs is left to the end of the process.
    std::thread{[done = std::move(done)]() mutable {
        g_settings_sync();
        done.set_value();
    }}.detach();
    isDone.wait_for(std::chrono::duration<double>{patience});
}

/// Whether a list of desktops, the most particular first, has this one.
bool names(std::string_view list, std::string_view desktop) {
    while (!list.empty()) {
        const auto name = list.substr(0, list.find(':'));
        if (name == desktop) return true;
        list.remove_prefix(std::min(list.size(), name.size() + 1));
    }
    return false;
}

void callAndForget(GDBusConnection* connection, const char* name, const char* path, const char* interface,
                   const char* method, GVariant* parameters) {
    g_dbus_connection_call(connection, name, path, interface, method, parameters, nullptr, G_DBUS_CALL_FLAGS_NONE, -1,
                           nullptr, nullptr, nullptr);
}

} // namespace

DoNotDisturb::DoNotDisturb() : m_desktop{currentDesktop()}, m_mark{std::make_shared<DoNotDisturb*>(this)} {}

DoNotDisturb::~DoNotDisturb() {
    if (m_answered == m_asked) return;
    if (m_desktop == Desktop::gnome) flushSettings(patience);
    // Said once more: a bus may forget what waits for its receiver to start when the sender goes.
    if (m_desktop == Desktop::xfce) callAndWait(Bus::session, m_bus->get(), changeOfXFCE(), patience);
}

DoNotDisturb::Desktop DoNotDisturb::currentDesktop() {
    const char* desktops = std::getenv("XDG_CURRENT_DESKTOP");
    const std::string_view list = desktops == nullptr ? "" : desktops;
    if (names(list, "GNOME")) return Desktop::gnome;
    if (names(list, "KDE")) return Desktop::kde;
    return names(list, "XFCE") ? Desktop::xfce : Desktop::other;
}

void DoNotDisturb::set(bool isOn) {
    m_isOn = isOn;
    ++m_asked;
    if (m_desktop == Desktop::gnome) showBanners(!isOn);
    if (m_desktop == Desktop::kde || m_desktop == Desktop::xfce) {
        if (!m_bus) {
            m_bus = std::make_unique<BusConnection>(Bus::session,
                                                    [this](GDBusConnection* connection) { apply(connection); });
        } else if (m_bus->get() != nullptr) {
            apply(m_bus->get());
        }
    }
}

void DoNotDisturb::apply(GDBusConnection* connection) {
    if (m_desktop == Desktop::xfce) return tellXFCE(connection);
    if (m_isOn) {
        inhibitKDE(connection);
    } else {
        releaseKDE(connection);
    }
}

BusCall DoNotDisturb::changeOfXFCE() const {
    return {"org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf", "SetProperty",
            g_variant_new("(ssv)", "xfce4-notifyd", "/do-not-disturb", g_variant_new_boolean(m_isOn ? TRUE : FALSE))};
}

void DoNotDisturb::tellXFCE(GDBusConnection* connection) {
    struct Asked {
        std::weak_ptr<DoNotDisturb*> mark;
        unsigned number;
    };
    const auto arrive = [](GObject* source, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Asked> asked{static_cast<Asked*>(data)};
        const GValueTree answer{g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, nullptr)};
        if (const auto self = asked->mark.lock()) (*self)->m_answered = asked->number;
    };
    const auto call = changeOfXFCE();
    g_dbus_connection_call(connection, call.name, call.path, call.interface, call.method, call.parameters, nullptr,
                           G_DBUS_CALL_FLAGS_NONE, -1, nullptr, arrive, new Asked{m_mark, m_asked});
}

void DoNotDisturb::inhibitKDE(GDBusConnection* connection) {
    if (m_cookie || m_isAsking) return;
    m_isAsking = true;
    using Mark = std::weak_ptr<DoNotDisturb*>;
    const auto arrive = [](GObject* source, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Mark> mark{static_cast<Mark*>(data)};
        const GValueTree answer{g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, nullptr)};
        const auto self = mark->lock();
        if (!self) return;
        (*self)->m_isAsking = false;
        guint32 cookie = 0;
        if (answer) g_variant_get(answer.get(), "(u)", &cookie);
        if (answer) (*self)->take(cookie);
    };
    g_dbus_connection_call(connection, notifications, notificationsPath, notifications, "Inhibit",
                           g_variant_new("(ssa{sv})", "com.kestrava.velmorin", "", nullptr), G_VARIANT_TYPE("(u)"),
                           G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, arrive, new Mark{m_mark});
}

void DoNotDisturb::take(std::uint32_t cookie) {
    m_cookie = cookie;
    // It may have been turned off while the answer was on its way.
    if (!m_isOn) releaseKDE(m_bus->get());
}

void DoNotDisturb::releaseKDE(GDBusConnection* connection) {
    if (const auto cookie = std::exchange(m_cookie, std::nullopt))
        callAndForget(connection, notifications, notificationsPath, notifications, "UnInhibit",
                      g_variant_new("(u)", *cookie));
}

} // namespace velmorin
