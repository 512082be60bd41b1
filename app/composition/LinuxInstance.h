#pragma once

#include "app/composition/LinuxPlaces.h"
#include "app/platform/linux/loop/MainLoop.h"
#include "app/platform/linux/services/SingleInstance.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace velmorin {

/// Whether this process is the one that runs sessions: one on a store, and one for a user, whose watchdog is one as
/// well. Main thread.
class LinuxInstance {
public:
    /// The loop must outlive this.
    LinuxInstance(MainLoop& loop, const LinuxPlaces& places, const std::filesystem::path& storeDirectory)
        : m_ofStore{loop, storeDirectory} {
        // Of two that come at once on a store, the one that must go anyway takes nothing from the other.
        if (m_ofStore.isFirst()) m_ofUser.emplace(loop, places.configuration / "Velmorin");
    }

    bool isOnly() const { return m_ofUser && m_ofUser->isFirst(); }
    /// Asks the other one to show itself. Returns when it has been told; false where it does not answer soon.
    bool askOtherToShow() const { return (m_ofUser ? *m_ofUser : m_ofStore).askFirstToShow(); }
    /// Others that come ask this one to show itself, from the main loop.
    void onShow(const std::function<void()>& call) {
        m_ofStore.onShow(call);
        if (m_ofUser) m_ofUser->onShow(call);
    }

private:
    SingleInstance m_ofStore;
    std::optional<SingleInstance> m_ofUser; ///< absent where there is another one on the store
};

} // namespace velmorin
