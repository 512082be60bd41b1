#include "app/platform/linux/services/PulsePlayer.h"

#include <algorithm>
#include <functional>
#include <glib.h>
#include <pulse/glib-mainloop.h>
#include <pulse/pulseaudio.h>
#include <utility>
#include <vector>

namespace velmorin {

namespace {

/// More than anybody hears apart; a server that does not answer must not collect them for ever.
constexpr std::size_t mostSounds = 16;

struct DropProperties {
    void operator()(pa_proplist* properties) const { pa_proplist_free(properties); }
};

std::unique_ptr<pa_proplist, DropProperties> programProperties() {
    std::unique_ptr<pa_proplist, DropProperties> properties{pa_proplist_new()};
    pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_NAME, "Velmorin");
    pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_ID, "com.kestrava.velmorin");
    return properties;
}

void forget(pa_operation* operation) {
    if (operation != nullptr) pa_operation_unref(operation);
}

} // namespace

/// One connection to the server and what is heard over it.
class PulsePlayer::Connection {
public:
    struct Calls {
        std::function<void()> onSilence; ///< the last sound has ended
        std::function<void()> onLost;    ///< there is no server, or it has gone; nothing may be freed in this call
    };

    explicit Connection(Calls calls) : m_calls{std::move(calls)}, m_loop{pa_glib_mainloop_new(nullptr)} {
        m_context = pa_context_new_with_proplist(pa_glib_mainloop_get_api(m_loop), nullptr, programProperties().get());
        pa_context_set_state_callback(m_context, changeState, this);
        if (pa_context_connect(m_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) lose();
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() {
        for (const auto& sound : m_sounds)
            sound->end();
        pa_context_set_state_callback(m_context, nullptr, nullptr);
        pa_context_disconnect(m_context);
        pa_context_unref(m_context);
        pa_glib_mainloop_free(m_loop);
    }

    void play(Wave wave) {
        if (m_sounds.size() >= mostSounds) return;
        m_sounds.push_back(std::make_unique<Sound>(*this, std::move(wave)));
        if (isReady()) m_sounds.back()->begin();
    }

    /// What was asked for and has not begun, of a server that was there before.
    std::vector<Wave> unheard() {
        std::vector<Wave> waves;
        for (auto& sound : m_sounds)
            if (m_wasReady && !sound->hasBegun()) waves.push_back(std::move(sound->wave()));
        return waves;
    }

private:
    /// One sound on its way through the server.
    class Sound {
    public:
        Sound(Connection& connection, Wave wave) : m_connection{connection}, m_wave{std::move(wave)} {}
        Sound(const Sound&) = delete;
        Sound& operator=(const Sound&) = delete;
        ~Sound() { end(); }

        void begin() {
            const pa_sample_spec spec{PA_SAMPLE_S16NE, m_wave.rate, m_wave.channels};
            std::unique_ptr<pa_proplist, DropProperties> properties{pa_proplist_new()};
            pa_proplist_sets(properties.get(), PA_PROP_MEDIA_ROLE, "event");
            m_stream =
                pa_stream_new_with_proplist(m_connection.m_context, "Velmorin", &spec, nullptr, properties.get());
            if (m_stream == nullptr) return m_connection.finish(this);
            pa_stream_set_state_callback(m_stream, changeState, this);
            if (pa_stream_connect_playback(m_stream, nullptr, nullptr, PA_STREAM_NOFLAGS, nullptr, nullptr) < 0)
                m_connection.finish(this);
        }
        void end() {
            if (m_stream == nullptr) return;
            pa_stream_set_state_callback(m_stream, nullptr, nullptr);
            if (m_drain != nullptr) pa_operation_cancel(m_drain);
            forget(std::exchange(m_drain, nullptr));
            pa_stream_disconnect(m_stream);
            pa_stream_unref(std::exchange(m_stream, nullptr));
        }
        bool hasBegun() const { return m_drain != nullptr; }
        Wave& wave() { return m_wave; }

    private:
        static void changeState(pa_stream* stream, void* data) {
            auto* sound = static_cast<Sound*>(data);
            const auto state = pa_stream_get_state(stream);
            if (state == PA_STREAM_READY) sound->write();
            if (state == PA_STREAM_FAILED && sound->m_connection.isReady()) sound->m_connection.finish(sound);
        }

        /// All of it at once: the server has room for more than a short sound, and plays what it has when asked to
        /// play all.
        void write() {
            const auto drained = [](pa_stream*, int, void* data) {
                auto* sound = static_cast<Sound*>(data);
                forget(std::exchange(sound->m_drain, nullptr));
                sound->m_connection.finish(sound);
            };
            const std::size_t size = m_wave.samples.size() * sizeof(std::int16_t);
            if (pa_stream_write(m_stream, m_wave.samples.data(), size, nullptr, 0, PA_SEEK_RELATIVE) == 0)
                m_drain = pa_stream_drain(m_stream, drained, this);
            if (m_drain == nullptr) m_connection.finish(this);
        }

        Connection& m_connection;
        Wave m_wave;
        pa_stream* m_stream = nullptr;
        pa_operation* m_drain = nullptr;
    };

    static void changeState(pa_context* context, void* data) {
        auto* connection = static_cast<Connection*>(data);
        const auto state = pa_context_get_state(context);
        if (state == PA_CONTEXT_READY) connection->beginAll();
        if (PA_CONTEXT_IS_GOOD(state) == 0) connection->lose();
    }

    bool isReady() const { return pa_context_get_state(m_context) == PA_CONTEXT_READY; }

    void beginAll() {
        m_wasReady = true;
        // One that cannot begin goes at once.
        std::vector<Sound*> waiting;
        std::ranges::transform(m_sounds, std::back_inserter(waiting), [](const auto& sound) { return sound.get(); });
        for (auto* sound : waiting)
            sound->begin();
    }

    void finish(Sound* sound) {
        std::erase_if(m_sounds, [sound](const auto& each) { return each.get() == sound; });
        if (m_sounds.empty()) m_calls.onSilence();
    }

    void lose() {
        if (!std::exchange(m_isLost, true)) m_calls.onLost();
    }

    Calls m_calls;
    pa_glib_mainloop* m_loop;
    pa_context* m_context = nullptr;
    bool m_wasReady = false;
    bool m_isLost = false;
    std::vector<std::unique_ptr<Sound>> m_sounds;
};

PulsePlayer::PulsePlayer(double idleTime) : m_idleTime{idleTime} {}

PulsePlayer::~PulsePlayer() {
    forgetIdleness();
    leave();
}

void PulsePlayer::play(Wave wave) {
    if (wave.samples.empty()) return;
    forgetIdleness();
    if (!m_connection) connect();
    m_connection->play(std::move(wave));
}

bool PulsePlayer::isConnected() const {
    return m_connection != nullptr;
}

void PulsePlayer::connect() {
    const auto clean = [](gpointer player) -> gboolean {
        static_cast<PulsePlayer*>(player)->m_loss = 0;
        static_cast<PulsePlayer*>(player)->lose();
        return G_SOURCE_REMOVE;
    };
    m_connection = std::make_unique<Connection>(
        Connection::Calls{[this] { awaitIdleness(); }, [this, clean] { m_loss = g_idle_add(clean, this); }});
}

void PulsePlayer::leave() {
    if (m_loss != 0) g_source_remove(std::exchange(m_loss, 0U));
    m_connection.reset();
}

void PulsePlayer::lose() {
    auto unheard = m_connection->unheard();
    leave();
    // The server may have been started again since, and nobody has noticed before this sound.
    for (auto& wave : unheard)
        play(std::move(wave));
}

void PulsePlayer::awaitIdleness() {
    forgetIdleness();
    const auto call = [](gpointer player) -> gboolean {
        static_cast<PulsePlayer*>(player)->m_idleTimer = 0;
        static_cast<PulsePlayer*>(player)->leave();
        return G_SOURCE_REMOVE;
    };
    m_idleTimer = g_timeout_add(static_cast<guint>(m_idleTime * 1000), call, this);
}

void PulsePlayer::forgetIdleness() {
    if (m_idleTimer != 0) g_source_remove(std::exchange(m_idleTimer, 0U));
}

} // namespace velmorin
