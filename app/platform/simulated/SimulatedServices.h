#pragma once

#include "app/platform/simulated/Journal.h"
#include "app/seams/Random.h"
#include "app/seams/ServiceManager.h"
#include "app/seams/Shortcuts.h"
#include "app/seams/Sounds.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// Sounds that are told to the journal, which must outlive this.
class SimulatedSounds final : public Sounds {
public:
    explicit SimulatedSounds(const Journal& journal) : m_journal{journal} {}
    void play(std::string_view name, double volume) override;

private:
    const Journal& m_journal;
};

/// Shortcuts that are told to the journal, which must outlive this.
class SimulatedShortcuts final : public Shortcuts {
public:
    explicit SimulatedShortcuts(const Journal& journal) : m_journal{journal} {}
    void run(const std::string& name) override;

private:
    const Journal& m_journal;
};

/// A launch service that is told to the journal, which must outlive this, and that starts nothing by itself.
class SimulatedServiceManager final : public ServiceManager {
public:
    explicit SimulatedServiceManager(const Journal& journal) : m_journal{journal} {}
    void install(const std::vector<std::string>& launchArguments) override;
    void remove() override;

    // The control side.

    std::optional<std::vector<std::string>> job; ///< its arguments; absent without one
    std::function<void()> whileInstalling;       ///< called each time, so that something can happen meanwhile

private:
    void tell(std::string_view action, const std::vector<std::string>& arguments) const;

    const Journal& m_journal;
};

/// Bytes that are the same in every run with the same seed.
class SimulatedRandom final : public Random {
public:
    explicit SimulatedRandom(std::uint64_t seed) : m_state{seed} {}
    Bytes bytes(std::size_t count) override;

private:
    std::uint64_t m_state;
};

} // namespace velmorin
