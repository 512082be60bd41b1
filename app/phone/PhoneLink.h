#pragma once

#include "app/seams/Cancellable.h"
#include "app/seams/Clock.h"
#include "app/seams/Lifetime.h"
#include "app/seams/Observable.h"
#include "app/seams/Random.h"
#include "app/seams/RelayTransport.h"
#include "app/seams/Timers.h"
#include "app/strings/Appearance.h"
#include "core/phone/PhoneCommand.h"
#include "core/phone/PhonePairing.h"
#include "core/phone/PhoneThought.h"
#include "core/session/ActiveSession.h"
#include "core/store/JSONStore.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace velmorin {

/// How far the pairing with a phone has come.
enum class PairingState { notPaired, waitingForPhone, paired };

constexpr std::array<std::string_view, 3> rawValues(PairingState) {
    return {"notPaired", "waitingForPhone", "paired"};
}

/// What is known of the phone's lock.
enum class LockState {
    idle,            ///< no session that the phone should be locked for
    sending,         ///< told to lock; it has not answered yet
    locked,          ///< it says it is
    noAnswer,        ///< no answer after 25 seconds; one may still come
    releasedByPhone, ///< its user got out early
    needsSetup,      ///< it could not lock
};

constexpr std::array<std::string_view, 6> rawValues(LockState) {
    return {"idle", "sending", "locked", "noAnswer", "releasedByPhone", "needsSetup"};
}

/// What a pairing leaves on the disk.
struct SavedPairing {
    PhonePairing pairing;
    bool isConfirmed = false;                 ///< the phone has said hello at least once
    std::optional<std::string> lastMessageID; ///< the relay's name of the last message that came
};

constexpr auto fields(std::type_identity<SavedPairing>) {
    return std::tuple{field("pairing", &SavedPairing::pairing), field("isConfirmed", &SavedPairing::isConfirmed),
                      field("lastMessageID", &SavedPairing::lastMessageID)};
}

/// The live connection to a paired phone, over a public relay that reads nothing of it. A session here can lock the
/// phone, never the reverse. Its requests go on by themselves; a failed one is tried again. Main thread.
class PhoneLink {
public:
    /// What it needs of the platform. All must outlive it.
    struct Seams {
        Clock& clock;
        Timers& timers;
        Random& random;
        RelayTransport& transport;
        const Appearance& appearance;
    };
    using Log = std::function<void(std::string_view)>;

    /// A public relay that speaks the ntfy protocol, reached without an account.
    static constexpr std::string_view relay = "https://ntfy.sh";
    /// What it remembers; the file exists only while there is a pairing, and only its owner may read it.
    static constexpr std::string_view fileName = "phone-link.json";

    /// Takes up a stored pairing. Nothing is listened to before `startListening`. `store` must outlive the link.
    PhoneLink(const JSONStore& store, Log log, Seams seams);

    const Observable<PairingState>& pairingState() const { return m_pairingState; }
    const Observable<LockState>& lockState() const { return m_lockState; }
    /// What the user has to know about the lock, in the present language; absent while nothing is wrong.
    std::optional<std::string> problemText() const;
    /// What the phone reads as a QR code; absent without a pairing.
    std::optional<std::string> pairingURI() const;
    /// The stored pairing, confirmed or not; absent without one.
    std::optional<PhonePairing> pairing() const { return m_saved ? std::optional{m_saved->pairing} : std::nullopt; }

    /// Makes a new pairing in the place of any old one and waits for the phone.
    void beginPairing();
    /// Forgets the pairing. The phone is not told.
    void disconnect();
    /// Opens the stream of the phone's messages anew; does nothing without a pairing.
    void startListening();
    /// Tells a paired phone to lock for a session, until its planned end if need be.
    void sendStart(const ActiveSession& session);
    /// Tells the phone that a session it was locked for is over.
    void sendEnd(const ActiveSession& session);
    /// Sends one thought to a paired phone.
    void sendThought(const PhoneThought& thought);

    std::function<void(const PhoneThought&)> onThought; ///< a thought came from the phone
    std::function<void()> onPaired;                     ///< the phone has said hello

private:
    void persist() const;
    void listen();
    void receive(const std::string& text, const std::string& messageID);
    void takeLockState(const UUID& sessionID, LockState state, std::string_view message);
    void takeHello();
    void send(const PhoneCommand::Command& command, Date until);
    void trySending(const std::string& url, const std::string& text, Date until);
    void tryThought(const std::string& url, const std::string& text, int attempt);
    std::optional<std::string> sealed(const std::optional<std::string>& message) const;
    std::string commandURL() const;

    Observable<PairingState> m_pairingState{PairingState::notPaired};
    Observable<LockState> m_lockState{LockState::idle};
    const JSONStore& m_store;
    Log m_log;
    std::optional<SavedPairing> m_saved;
    Cancellable m_listener;
    Cancellable m_sender;
    Cancellable m_answerWatch;
    std::optional<UUID> m_currentSessionID; ///< the session that the phone is meant to be locked for
    std::string m_since;                    ///< the message after which the stream goes on
    Seams m_seams;
    Lifetime m_lifetime;
};

} // namespace velmorin
