#include "app/platform/linux/services/DesktopMotion.h"

#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace velmorin {

namespace {

constexpr const char* portal = "org.freedesktop.portal.Desktop";
constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* portalInterface = "org.freedesktop.portal.Settings";

/// Where the portal and GNOME keep it, true for animations.
constexpr const char* gnomeSpace = "org.gnome.desktop.interface";
constexpr const char* gnomeKey = "enable-animations";
/// The same for all desktops, 1 for none.
constexpr const char* commonSpace = "org.freedesktop.appearance";
constexpr const char* commonKey = "reduced-motion";
/// A factor of KDE's for how long its animations take, 0 for none, as the portal and as its file has it.
constexpr const char* kdeSpace = "org.kde.kdeglobals.KDE";
constexpr const char* kdeGroup = "KDE";
constexpr const char* kdeKey = "AnimationDurationFactor";

struct DropSchema {
    void operator()(GSettingsSchema* schema) const { g_settings_schema_unref(schema); }
};

/// GNOME's settings, where they are installed; those of a schema that is missing would end the program.
GOwned<GSettings> gnomeSettings() {
    auto* source = g_settings_schema_source_get_default();
    if (source == nullptr) return nullptr;
    const std::unique_ptr<GSettingsSchema, DropSchema> schema{
        g_settings_schema_source_lookup(source, gnomeSpace, TRUE)};
    if (!schema || g_settings_schema_has_key(schema.get(), gnomeKey) == FALSE) return nullptr;
    return GOwned<GSettings>{g_settings_new_full(schema.get(), nullptr, nullptr)};
}

GText pathOfKDE() {
    return GText{g_build_filename(g_get_user_config_dir(), "kdeglobals", nullptr)};
}

bool isDesktopOfKDE() {
    const char* desktops = std::getenv("XDG_CURRENT_DESKTOP");
    const auto list = ":" + std::string{desktops == nullptr ? "" : desktops} + ":";
    return list.find(":KDE:") != std::string::npos;
}

bool isZero(const char* text) {
    char* end = nullptr;
    const double factor = g_ascii_strtod(text, &end);
    return end != text && factor == 0;
}

} // namespace

DesktopMotion::DesktopMotion()
    : m_mark{std::make_shared<DesktopMotion*>(this)}, m_bus{Bus::session, [this](GDBusConnection* connection) {
                                                                askPortal(connection);
                                                            }} {
    if (isDesktopOfKDE()) followKDE();
}

DesktopMotion::~DesktopMotion() {
    // Somebody else may hold on to these.
    if (m_settings) g_signal_handlers_disconnect_by_data(m_settings.get(), this);
    if (m_file) g_signal_handlers_disconnect_by_data(m_file.get(), this);
}

void DesktopMotion::askPortal(GDBusConnection* connection) {
    m_changes = SignalSubscription{connection, portal, portalPath, portalInterface,
                                   [this](const char* member, GVariant* parameters) {
                                       if (std::string_view{member} != "SettingChanged") return;
                                       if (g_variant_is_of_type(parameters, G_VARIANT_TYPE("(ssv)")) == FALSE) return;
                                       const char* space = nullptr;
                                       const char* key = nullptr;
                                       GVariant* value = nullptr;
                                       g_variant_get(parameters, "(&s&sv)", &space, &key, &value);
                                       const GValueTree held{value};
                                       take(space, key, value);
                                       settle();
                                   }};
    using Mark = std::weak_ptr<DesktopMotion*>;
    const auto arrive = [](GObject* source, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Mark> mark{static_cast<Mark*>(data)};
        const GValueTree answer{g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, nullptr)};
        const auto self = mark->lock();
        if (!self) return;
        if (!answer) return (*self)->followGNOME();
        const GValueTree namespaces{g_variant_get_child_value(answer.get(), 0)};
        (*self)->take(namespaces.get());
    };
    const std::array<const char*, 4> spaces{gnomeSpace, commonSpace, kdeSpace, nullptr};
    g_dbus_connection_call(connection, portal, portalPath, portalInterface, "ReadAll",
                           g_variant_new("(^as)", spaces.data()), G_VARIANT_TYPE("(a{sa{sv}})"), G_DBUS_CALL_FLAGS_NONE,
                           -1, nullptr, arrive, new Mark{m_mark});
}

void DesktopMotion::take(GVariant* namespaces) {
    GVariantIter spaces;
    g_variant_iter_init(&spaces, namespaces);
    const char* space = nullptr;
    GVariant* values = nullptr;
    while (g_variant_iter_next(&spaces, "{&s@a{sv}}", &space, &values) != FALSE) {
        const GValueTree heldValues{values};
        GVariantIter keys;
        g_variant_iter_init(&keys, values);
        const char* key = nullptr;
        GVariant* value = nullptr;
        while (g_variant_iter_next(&keys, "{&sv}", &key, &value) != FALSE) {
            const GValueTree heldValue{value};
            take(space, key, value);
        }
    }
    settle();
}

void DesktopMotion::take(const std::string& space, const std::string& key, GVariant* value) {
    const bool isFlag = g_variant_is_of_type(value, G_VARIANT_TYPE_BOOLEAN) != FALSE;
    const bool isNumber = g_variant_is_of_type(value, G_VARIANT_TYPE_UINT32) != FALSE;
    const bool isText = g_variant_is_of_type(value, G_VARIANT_TYPE_STRING) != FALSE;
    if (space == gnomeSpace && key == gnomeKey && isFlag) m_isPortalStill = g_variant_get_boolean(value) == FALSE;
    if (space == commonSpace && key == commonKey && isNumber) m_isReduced = g_variant_get_uint32(value) == 1;
    if (space == kdeSpace && key == kdeKey && isText) m_isKDEStill = isZero(g_variant_get_string(value, nullptr));
}

void DesktopMotion::followGNOME() {
    m_settings = gnomeSettings();
    if (!m_settings) return;
    const auto changed = [](GSettings*, const char*, gpointer self) { static_cast<DesktopMotion*>(self)->readGNOME(); };
    const auto signal = std::string{"changed::"} + gnomeKey;
    g_signal_connect(m_settings.get(), signal.c_str(),
                     G_CALLBACK(static_cast<void (*)(GSettings*, const char*, gpointer)>(changed)), this);
    readGNOME();
}

void DesktopMotion::readGNOME() {
    m_isPortalStill = g_settings_get_boolean(m_settings.get(), gnomeKey) == FALSE;
    settle();
}

void DesktopMotion::followKDE() {
    const GOwned<GFile> file{g_file_new_for_path(pathOfKDE().get())};
    m_file.reset(g_file_monitor_file(file.get(), G_FILE_MONITOR_WATCH_MOVES, nullptr, nullptr));
    const auto changed = [](GFileMonitor*, GFile*, GFile*, GFileMonitorEvent, gpointer self) {
        static_cast<DesktopMotion*>(self)->readKDE();
    };
    using Changed = void (*)(GFileMonitor*, GFile*, GFile*, GFileMonitorEvent, gpointer);
    if (m_file) g_signal_connect(m_file.get(), "changed", G_CALLBACK(static_cast<Changed>(changed)), this);
    readKDE();
}

void DesktopMotion::readKDE() {
    const GKeys keys{g_key_file_new()};
    if (g_key_file_load_from_file(keys.get(), pathOfKDE().get(), G_KEY_FILE_NONE, nullptr) == FALSE) return;
    const GText factor{g_key_file_get_string(keys.get(), kdeGroup, kdeKey, nullptr)};
    m_isKDEStill = factor && isZero(factor.get());
    settle();
}

void DesktopMotion::settle() {
    m_reduces.set(m_isPortalStill || m_isReduced || m_isKDEStill);
}

} // namespace velmorin
