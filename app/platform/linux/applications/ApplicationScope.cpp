#include "app/platform/linux/applications/ApplicationScope.h"

#include "app/platform/linux/applications/SessionBus.h"

#include <gio/gio.h>

namespace velmorin::ApplicationScope {

namespace {

/// An id as a part of a unit's name: what would part the name is written \xHH.
std::string escaped(const std::string& id) {
    constexpr const char* digits = "0123456789abcdef";
    std::string result;
    for (const char c : id) {
        const bool isPlain = g_ascii_isalnum(c) || c == '_' || c == ':' || (c == '.' && !result.empty());
        const auto byte = static_cast<unsigned char>(c);
        if (isPlain)
            result += c;
        else
            result.append("\\x").append({digits[byte / 16], digits[byte % 16]});
    }
    return result;
}

GVariant* arguments(const std::string& id, std::int32_t processID) {
    GVariantBuilder processes;
    g_variant_builder_init(&processes, G_VARIANT_TYPE("au"));
    g_variant_builder_add(&processes, "u", static_cast<guint32>(processID));
    GVariantBuilder properties;
    g_variant_builder_init(&properties, G_VARIANT_TYPE("a(sv)"));
    g_variant_builder_add(&properties, "(sv)", "PIDs", g_variant_builder_end(&processes));
    g_variant_builder_add(&properties, "(sv)", "Slice", g_variant_new_string("app.slice"));
    g_variant_builder_add(&properties, "(sv)", "CollectMode", g_variant_new_string("inactive-or-failed"));
    return g_variant_new("(ssa(sv)a(sa(sv)))", name(id, processID).c_str(), "fail", &properties, nullptr);
}

} // namespace

std::string name(const std::string& id, std::int32_t processID) {
    return "app-velmorin-" + escaped(id) + "-" + std::to_string(processID) + ".scope";
}

void start(const std::string& id, std::int32_t processID) {
    auto* bus = sessionBus();
    if (bus == nullptr) return;
    g_dbus_connection_call(bus, "org.freedesktop.systemd1", "/org/freedesktop/systemd1",
                           "org.freedesktop.systemd1.Manager", "StartTransientUnit", arguments(id, processID), nullptr,
                           G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, nullptr, nullptr);
}

} // namespace velmorin::ApplicationScope
