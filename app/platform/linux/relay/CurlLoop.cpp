#include "app/platform/linux/relay/CurlLoop.h"

#include <algorithm>
#include <glib-unix.h>

namespace velmorin {

namespace {

GIOCondition conditions(int what) {
    unsigned result = 0;
    if (what == CURL_POLL_IN || what == CURL_POLL_INOUT) result |= G_IO_IN | G_IO_HUP | G_IO_ERR;
    if (what == CURL_POLL_OUT || what == CURL_POLL_INOUT) result |= G_IO_OUT | G_IO_ERR;
    return static_cast<GIOCondition>(result);
}

int events(GIOCondition condition) {
    int result = 0;
    if ((condition & (G_IO_IN | G_IO_HUP)) != 0) result |= CURL_CSELECT_IN;
    if ((condition & G_IO_OUT) != 0) result |= CURL_CSELECT_OUT;
    if ((condition & G_IO_ERR) != 0) result |= CURL_CSELECT_ERR;
    return result;
}

} // namespace

CurlLoop::CurlLoop(std::function<void()> progressed) : m_progressed{std::move(progressed)} {}

/// What the library sets up for its cryptography costs time and memory, which is for those who have paired a phone.
void CurlLoop::start() {
    static const CURLcode isReady = curl_global_init(CURL_GLOBAL_DEFAULT);
    static_cast<void>(isReady);
    m_multi = curl_multi_init();
    curl_multi_setopt(m_multi, CURLMOPT_SOCKETFUNCTION, socketChanged);
    curl_multi_setopt(m_multi, CURLMOPT_SOCKETDATA, this);
    curl_multi_setopt(m_multi, CURLMOPT_TIMERFUNCTION, timeoutChanged);
    curl_multi_setopt(m_multi, CURLMOPT_TIMERDATA, this);
}

CurlLoop::~CurlLoop() {
    if (m_multi != nullptr) curl_multi_cleanup(m_multi); // closes what is kept open, and tells of each
    while (!m_watches.empty())
        unwatch(m_watches.begin()->first);
    if (m_timeout != 0) g_source_remove(m_timeout);
}

void CurlLoop::add(CURL* transfer) {
    if (m_multi == nullptr) start();
    curl_multi_add_handle(m_multi, transfer);
}

void CurlLoop::remove(CURL* transfer) {
    curl_multi_remove_handle(m_multi, transfer);
}

std::optional<std::pair<CURL*, CURLcode>> CurlLoop::nextEnded() {
    if (m_multi == nullptr) return std::nullopt;
    int left = 0;
    while (const auto* message = curl_multi_info_read(m_multi, &left)) {
        if (message->msg == CURLMSG_DONE) return std::pair{message->easy_handle, message->data.result};
    }
    return std::nullopt;
}

int CurlLoop::socketChanged(CURL*, curl_socket_t socket, int what, void* loop, void*) {
    auto* self = static_cast<CurlLoop*>(loop);
    self->unwatch(socket);
    if (what == CURL_POLL_REMOVE) return 0;
    const auto ready = [](int descriptor, GIOCondition condition, gpointer data) -> gboolean {
        static_cast<CurlLoop*>(data)->act(descriptor, events(condition));
        return G_SOURCE_CONTINUE; // unless it was removed meanwhile, which holds
    };
    self->m_watches[socket] = g_unix_fd_add(socket, conditions(what), ready, self);
    return 0;
}

int CurlLoop::timeoutChanged(CURLM*, long milliseconds, void* loop) {
    auto* self = static_cast<CurlLoop*>(loop);
    if (self->m_timeout != 0) g_source_remove(std::exchange(self->m_timeout, 0));
    if (milliseconds < 0) return 0;
    const auto due = [](gpointer data) -> gboolean {
        auto* owner = static_cast<CurlLoop*>(data);
        owner->m_timeout = 0;
        owner->act(CURL_SOCKET_TIMEOUT, 0);
        return G_SOURCE_REMOVE;
    };
    constexpr long longest = 1'000'000'000;
    self->m_timeout = g_timeout_add(static_cast<unsigned>(std::min(milliseconds, longest)), due, self);
    return 0;
}

void CurlLoop::unwatch(curl_socket_t socket) {
    const auto found = m_watches.extract(socket);
    if (!found.empty()) g_source_remove(found.mapped());
}

void CurlLoop::act(curl_socket_t socket, int events) {
    int running = 0;
    curl_multi_socket_action(m_multi, socket, events, &running);
    const auto progressed = m_progressed; // it may end this
    progressed();
}

} // namespace velmorin
