#include "app/platform/simulated/SimulatedServices.h"

#include "core/foundation/JSONCoding.h"

namespace velmorin {

void SimulatedSounds::play(std::string_view name, double volume) {
    m_journal.tell("sound", [&](JSONOutput& output) {
        output.key("name");
        output.write(name);
        output.key("volume");
        output.write(volume);
    });
}

void SimulatedShortcuts::run(const std::string& name) {
    m_journal.tell("shortcut", [&](JSONOutput& output) {
        output.key("name");
        output.write(name);
    });
}

void SimulatedServiceManager::install(const std::vector<std::string>& launchArguments) {
    job = launchArguments;
    tell("install", launchArguments);
    if (whileInstalling) whileInstalling();
}

void SimulatedServiceManager::remove() {
    job.reset();
    tell("remove", {});
}

void SimulatedServiceManager::tell(std::string_view action, const std::vector<std::string>& arguments) const {
    m_journal.tell("watchdog", [&](JSONOutput& output) {
        output.key("action");
        output.write(action);
        output.key("arguments");
        encode(output, arguments);
    });
}

// SplitMix64 (Steele, Lea, Flood: Fast splittable pseudorandom number generators, 2014).
Bytes SimulatedRandom::bytes(std::size_t count) {
    Bytes drawn(count);
    for (auto& byte : drawn) {
        m_state += 0x9E3779B97F4A7C15ULL;
        std::uint64_t mixed = m_state;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9ULL;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBULL;
        byte = static_cast<std::uint8_t>((mixed ^ (mixed >> 31)) & 0xFF);
    }
    return drawn;
}

} // namespace velmorin
