#include "app/platform/linux/applications/StartupContext.h"

namespace velmorin {

namespace {

constexpr const char* displayKey = "velmorin-display";
constexpr const char* startupKey = "velmorin-startup-id";

char* told(GAppLaunchContext* context, const char* key) {
    return g_strdup(static_cast<const char*>(g_object_get_data(G_OBJECT(context), key)));
}

void initialize(gpointer type, gpointer) {
    auto* functions = static_cast<GAppLaunchContextClass*>(type);
    functions->get_display = [](auto* context, auto*, auto*) { return told(context, displayKey); };
    functions->get_startup_notify_id = [](auto* context, auto*, auto*) { return told(context, startupKey); };
}

/// The kind of context that answers with what was put into it.
GType contextType() {
    static const GType type = g_type_register_static_simple(G_TYPE_APP_LAUNCH_CONTEXT, "VelmorinStartupContext",
                                                            sizeof(GAppLaunchContextClass), initialize,
                                                            sizeof(GAppLaunchContext), nullptr, GTypeFlags{});
    return type;
}

} // namespace

GOwned<GAppLaunchContext> startupContext(const std::string& display, const std::string& startupID) {
    GOwned<GAppLaunchContext> context{G_APP_LAUNCH_CONTEXT(g_object_new(contextType(), nullptr))};
    if (!display.empty()) {
        g_object_set_data_full(G_OBJECT(context.get()), displayKey, g_strdup(display.c_str()), g_free);
        g_app_launch_context_setenv(context.get(), "DISPLAY", display.c_str());
    }
    g_object_set_data_full(G_OBJECT(context.get()), startupKey, g_strdup(startupID.c_str()), g_free);
    // GIO would tell only entries that ask for it; the others' toolkits look for it all the same.
    g_app_launch_context_setenv(context.get(), "DESKTOP_STARTUP_ID", startupID.c_str());
    g_app_launch_context_unsetenv(context.get(), "DESKTOP_AUTOSTART_ID");
    for (const auto* variable : ownVariables)
        g_app_launch_context_unsetenv(context.get(), variable);
    return context;
}

} // namespace velmorin
