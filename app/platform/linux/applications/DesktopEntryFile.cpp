#include "app/platform/linux/applications/DesktopEntryFile.h"

#include "app/platform/linux/applications/CommandLine.h"
#include "app/platform/linux/loop/GLibPointers.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <unistd.h>

namespace velmorin {

namespace {

namespace fs = std::filesystem;

/// The group of a desktop entry in its file.
class Keys {
public:
    explicit Keys(const std::string& path) : m_file{g_key_file_new()} {
        std::error_code unreadable;
        m_isRead = fs::is_regular_file(path, unreadable) &&
                   g_key_file_load_from_file(m_file.get(), path.c_str(), G_KEY_FILE_NONE, nullptr) != FALSE;
    }

    bool isRead() const { return m_isRead; }
    std::string text(const char* key) const {
        return orEmpty(g_key_file_get_string(m_file.get(), group, key, nullptr));
    }
    std::string localized(const char* key) const {
        return orEmpty(g_key_file_get_locale_string(m_file.get(), group, key, nullptr, nullptr));
    }
    bool isTrue(const char* key) const { return g_key_file_get_boolean(m_file.get(), group, key, nullptr) != FALSE; }
    bool has(const char* key) const { return g_key_file_has_key(m_file.get(), group, key, nullptr) != FALSE; }
    bool lists(const char* key, const std::string& word) const {
        const GTexts list{g_key_file_get_string_list(m_file.get(), group, key, nullptr, nullptr)};
        return list && g_strv_contains(list.get(), word.c_str()) != FALSE;
    }

private:
    static constexpr const char* group = G_KEY_FILE_DESKTOP_GROUP;

    static std::string orEmpty(char* text) {
        const GText owned{text};
        return owned ? std::string{owned.get()} : std::string{};
    }

    GKeys m_file;
    bool m_isRead = false;
};

CommandLine::Arguments command(const std::string& exec) {
    int count = 0;
    char** words = nullptr;
    if (g_shell_parse_argv(exec.c_str(), &count, &words, nullptr) == FALSE) return {};
    const GTexts owned{words};
    return {words, words + count};
}

/// The first of the desktop's names that the entry speaks of decides.
bool isMeantFor(const std::vector<std::string>& desktops, const Keys& keys) {
    for (const auto& desktop : desktops) {
        if (keys.lists(G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN, desktop)) return true;
        if (keys.lists(G_KEY_FILE_DESKTOP_KEY_NOT_SHOW_IN, desktop)) return false;
    }
    return !keys.has(G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN);
}

/// The file behind a path, links resolved; empty when there is none that can be read.
std::string existing(const fs::path& path) {
    std::error_code missing;
    if (::access(path.c_str(), R_OK) != 0 || !fs::is_regular_file(path, missing)) return {};
    return fs::canonical(path, missing).string();
}

void readCommand(const Keys& keys, ProgramPaths& programs, DesktopEntryFile& file) {
    const auto words = command(keys.text(G_KEY_FILE_DESKTOP_KEY_EXEC));
    file.argumentCount =
        static_cast<std::size_t>(std::ranges::count_if(words, [](const auto& word) { return !word.starts_with('%'); }));
    const auto needed = keys.text(G_KEY_FILE_DESKTOP_KEY_TRY_EXEC);
    const bool isThere = !words.empty() && !programs.resolve(words.front()).empty();
    file.entry.isLaunchable = (isThere || keys.isTrue(G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE)) &&
                              (needed.empty() || !programs.resolve(needed).empty());
    const auto& path = programs.resolve(CommandLine::program(words));
    // A link may lead to a launcher: all snaps' commands lead to one.
    if (!CommandLine::isRuntime(CommandLine::fileName(path))) file.entry.program = path;
}

} // namespace

const std::string& ProgramPaths::resolve(const std::string& program) {
    const auto [place, isNew] = m_resolved.try_emplace(program);
    auto& resolved = place->second;
    if (!isNew) return resolved;
    if (program.find('/') != std::string::npos) {
        if (program.starts_with('/')) resolved = existing(program);
        return resolved;
    }
    for (auto folder = m_folders.begin(); !program.empty() && resolved.empty() && folder != m_folders.end(); ++folder)
        resolved = existing(fs::path{*folder} / program);
    return resolved;
}

std::optional<DesktopEntryFile> DesktopEntryFile::read(const std::string& path, const std::string& id,
                                                       const std::vector<std::string>& desktops,
                                                       ProgramPaths& programs) {
    const Keys keys{path};
    if (!keys.isRead()) return std::nullopt;
    DesktopEntryFile file;
    file.isHidden = keys.isTrue(G_KEY_FILE_DESKTOP_KEY_HIDDEN);
    if (file.isHidden) return file;
    if (keys.text(G_KEY_FILE_DESKTOP_KEY_TYPE) != G_KEY_FILE_DESKTOP_TYPE_APPLICATION) return std::nullopt;
    auto& entry = file.entry;
    entry.id = id;
    entry.path = path;
    entry.name = keys.localized(G_KEY_FILE_DESKTOP_KEY_NAME);
    if (entry.name.empty()) entry.name = id;
    entry.startupWMClass = keys.text(G_KEY_FILE_DESKTOP_KEY_STARTUP_WM_CLASS);
    entry.icon = keys.localized(G_KEY_FILE_DESKTOP_KEY_ICON);
    entry.isInTerminal = keys.isTrue(G_KEY_FILE_DESKTOP_KEY_TERMINAL);
    readCommand(keys, programs, file);
    entry.isShown = entry.isLaunchable && !keys.isTrue(G_KEY_FILE_DESKTOP_KEY_NO_DISPLAY) && isMeantFor(desktops, keys);
    return file;
}

} // namespace velmorin
