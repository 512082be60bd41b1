#pragma once

#include "app/platform/linux/services/PulsePlayer.h"
#include "app/platform/linux/services/WaveFile.h"
#include "app/seams/Sounds.h"
#include "core/store/Files.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace velmorin {

/// The sounds of a folder: that named N is its file N.wav. The volume is the factor of its amplitude. Main thread.
class LinuxSounds final : public Sounds {
public:
    static constexpr double idleTime = 5; ///< seconds of silence until the sound server is left

    /// `files` must outlive this.
    LinuxSounds(std::filesystem::path folder, Files& files);

    void play(std::string_view name, double volume) override;
    /// Whether the sound server is in use.
    bool isConnected() const { return m_player.isConnected(); }

private:
    const std::optional<Wave>& wave(const std::string& name);

    std::filesystem::path m_folder;
    Files& m_files;
    std::map<std::string, std::optional<Wave>> m_waves; ///< those that were asked for; absent when there is none
    PulsePlayer m_player{idleTime};
};

} // namespace velmorin
