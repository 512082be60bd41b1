#include "app/platform/linux/services/LinuxSounds.h"

#include <utility>

namespace velmorin {

LinuxSounds::LinuxSounds(std::filesystem::path folder, Files& files) : m_folder{std::move(folder)}, m_files{files} {}

void LinuxSounds::play(std::string_view name, double volume) {
    // Nothing outside the folder is a sound.
    if (name.empty() || name.find('/') != std::string_view::npos || name.find('\0') != std::string_view::npos) return;
    if (const auto& found = wave(std::string{name})) m_player.play(found->scaled(volume));
}

const std::optional<Wave>& LinuxSounds::wave(const std::string& name) {
    const auto known = m_waves.find(name);
    if (known != m_waves.end()) return known->second;
    const auto content = m_files.read(m_folder / (name + ".wav"));
    return m_waves.emplace(name, content ? readWave(*content) : std::nullopt).first->second;
}

} // namespace velmorin
