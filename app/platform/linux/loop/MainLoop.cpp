#include "app/platform/linux/loop/MainLoop.h"

#include <glib-unix.h>
#include <glib.h>
#include <mutex>
#include <utility>
#include <vector>

namespace velmorin {

namespace {

/// A source that calls when its descriptor can be read.
struct ReadableSource {
    GSource base;
    gpointer descriptor;
    MainLoop::Call* call;
    std::function<bool()>* isPending;
};

ReadableSource* asReadable(GSource* source) {
    return static_cast<ReadableSource*>(static_cast<void*>(source));
}

bool holdsMore(GSource* source) {
    const auto& isPending = *asReadable(source)->isPending;
    return isPending && isPending();
}

gboolean prepare(GSource* source, gint* timeout) {
    *timeout = -1;
    return holdsMore(source) ? TRUE : FALSE;
}

gboolean check(GSource* source) {
    return g_source_query_unix_fd(source, asReadable(source)->descriptor) != 0 || holdsMore(source) ? TRUE : FALSE;
}

gboolean dispatch(GSource* source, GSourceFunc, gpointer) {
    // The source, and with it the call, outlives this even when the call calls itself off.
    (*asReadable(source)->call)();
    return G_SOURCE_CONTINUE;
}

void finalize(GSource* source) {
    delete asReadable(source)->call;
    delete asReadable(source)->isPending;
}

/// Has the context own a source until the result goes.
Cancellable attached(GSource* source, GMainContext* context) {
    g_source_attach(source, context);
    return Cancellable{[source] {
        g_source_destroy(source);
        g_source_unref(source);
    }};
}

GSourceFuncs readableFunctions{prepare, check, dispatch, finalize, nullptr, nullptr};

} // namespace

/// What waits to be called, with the one source that calls it.
struct MainLoop::Posted {
    std::mutex mutex;
    std::vector<Call> calls;
    bool isScheduled = false;
    bool isClosed = false;

    std::vector<Call> take() {
        const std::lock_guard lock{mutex};
        isScheduled = false;
        return std::exchange(calls, {});
    }
};

MainLoop::MainLoop() : m_context{g_main_context_ref(g_main_context_default())}, m_posted{std::make_shared<Posted>()} {}

MainLoop::~MainLoop() {
    std::vector<Call> uncalled;
    {
        const std::lock_guard lock{m_posted->mutex};
        m_posted->isClosed = true;
        uncalled.swap(m_posted->calls);
    }
    uncalled.clear();
    g_main_context_unref(m_context);
}

int MainLoop::run() {
    while (!m_isQuitting)
        g_main_context_iteration(m_context, TRUE);
    m_isQuitting = false;
    return m_status;
}

void MainLoop::quit(int status) {
    m_isQuitting = true;
    m_status = status;
    g_main_context_wakeup(m_context);
}

void MainLoop::post(Call call) {
    const std::lock_guard lock{m_posted->mutex};
    if (m_posted->isClosed) return;
    m_posted->calls.push_back(std::move(call));
    if (std::exchange(m_posted->isScheduled, true)) return;
    GSource* source = g_idle_source_new();
    g_source_set_priority(source, G_PRIORITY_DEFAULT);
    const auto callAll = [](gpointer data) -> gboolean {
        const auto posted = *static_cast<std::shared_ptr<Posted>*>(data);
        for (auto& each : posted->take()) {
            if (posted->isClosed) break; // by a call before this one
            each();
        }
        return G_SOURCE_REMOVE;
    };
    const auto drop = [](gpointer data) { delete static_cast<std::shared_ptr<Posted>*>(data); };
    g_source_set_callback(source, callAll, new std::shared_ptr<Posted>{m_posted}, drop);
    g_source_attach(source, m_context);
    g_source_unref(source);
}

Cancellable MainLoop::watchReadable(int descriptor, Call call, std::function<bool()> isPending) {
    GSource* source = g_source_new(&readableFunctions, sizeof(ReadableSource));
    auto* readable = asReadable(source);
    readable->call = new Call{std::move(call)};
    readable->isPending = new std::function<bool()>{std::move(isPending)};
    const auto conditions = static_cast<GIOCondition>(G_IO_IN | G_IO_HUP | G_IO_ERR);
    readable->descriptor = g_source_add_unix_fd(source, descriptor, conditions);
    return attached(source, m_context);
}

Cancellable MainLoop::watchSignal(int number, Call call) {
    GSource* source = g_unix_signal_source_new(number);
    const auto make = [](gpointer data) -> gboolean {
        (*static_cast<Call*>(data))();
        return G_SOURCE_CONTINUE;
    };
    const auto drop = [](gpointer data) { delete static_cast<Call*>(data); };
    g_source_set_callback(source, make, new Call{std::move(call)}, drop);
    return attached(source, m_context);
}

} // namespace velmorin
