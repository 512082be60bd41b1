#include "app/platform/linux/applications/IconTheme.h"

#include "app/platform/linux/loop/GLibPointers.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <gio/gio.h>
#include <limits>
#include <string_view>
#include <utility>

namespace velmorin {

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 2> suffixes{".png", ".svg"};
constexpr const char* lastTheme = "hicolor"; ///< where applications put their own icons; every theme ends there

bool isFile(const std::string& path) {
    std::error_code missing;
    return fs::is_regular_file(path, missing);
}

/// A name without the suffix that some entries give it.
std::string withoutSuffix(const std::string& name) {
    for (const std::string_view suffix : {".png", ".svg", ".xpm"}) {
        if (name.ends_with(suffix)) return name.substr(0, name.size() - suffix.size());
    }
    return name;
}

std::optional<std::string> fileIn(const std::string& folder, const std::string& name) {
    for (const auto suffix : suffixes) {
        const auto path = (fs::path{folder} / name).concat(suffix).string();
        if (isFile(path)) return path;
    }
    return std::nullopt;
}

/// The theme's name as the desktop's settings have it; empty where they cannot be read.
std::string chosenTheme() {
    constexpr const char* schema = "org.gnome.desktop.interface";
    auto* source = g_settings_schema_source_get_default();
    auto* found = source != nullptr ? g_settings_schema_source_lookup(source, schema, TRUE) : nullptr;
    if (found == nullptr) return {};
    const bool hasKey = g_settings_schema_has_key(found, "icon-theme") != FALSE;
    g_settings_schema_unref(found);
    if (!hasKey) return {};
    const GOwned<GSettings> settings{g_settings_new(schema)};
    return GText{g_settings_get_string(settings.get(), "icon-theme")}.get();
}

/// A key of an ini file; empty when there is none.
std::string setting(const std::string& path, const char* group, const char* key) {
    const GKeys file{g_key_file_new()};
    if (!isFile(path) || g_key_file_load_from_file(file.get(), path.c_str(), G_KEY_FILE_NONE, nullptr) == FALSE)
        return {};
    const GText text{g_key_file_get_string(file.get(), group, key, nullptr)};
    return text ? text.get() : "";
}

} // namespace

/// One theme, from all folders that have a part of it.
class IconTheme::Theme {
public:
    Theme(std::string themeName, const std::vector<std::string>& iconFolders) : name{std::move(themeName)} {
        const auto indexed = std::ranges::find_if(
            iconFolders, [&](const auto& folder) { return isFile(folder + "/" + name + "/index.theme"); });
        if (indexed == iconFolders.end()) return;
        const auto path = *indexed + "/" + name + "/index.theme";
        const GKeys file{g_key_file_new()};
        if (g_key_file_load_from_file(file.get(), path.c_str(), G_KEY_FILE_NONE, nullptr) == FALSE) return;
        parents = list(file.get(), "Inherits");
        for (const auto* key : {"Directories", "ScaledDirectories"}) {
            for (const auto& folder : list(file.get(), key))
                addFolder(file.get(), folder, iconFolders);
        }
    }

    /// The nearest in size; of those equally near the first.
    std::optional<std::string> file(const std::string& icon, int pixelSize) const {
        std::optional<std::string> best;
        int bestDistance = std::numeric_limits<int>::max();
        for (const auto& folder : m_folders) {
            const int distance = folder.distance(pixelSize);
            if (distance >= bestDistance) continue;
            if (auto found = fileIn(folder.path, icon)) {
                best = std::move(found);
                bestDistance = distance;
            }
        }
        return best;
    }

    std::string name;
    std::vector<std::string> parents;

private:
    struct Folder {
        std::string path;
        int smallest; ///< pixels a side that it is made for
        int largest;

        int distance(int pixelSize) const { return std::max({0, smallest - pixelSize, pixelSize - largest}); }
    };

    static std::vector<std::string> list(GKeyFile* file, const char* key) {
        // Separated by commas, unlike the lists of desktop entries.
        const GText text{g_key_file_get_string(file, "Icon Theme", key, nullptr)};
        const GTexts parts{g_strsplit(text ? text.get() : "", ",", -1)};
        std::vector<std::string> result;
        for (auto* const* part = parts.get(); *part != nullptr; ++part) {
            if (*g_strstrip(*part) != '\0') result.emplace_back(*part);
        }
        return result;
    }

    void addFolder(GKeyFile* file, const std::string& folder, const std::vector<std::string>& iconFolders) {
        const auto number = [&](const char* key, int otherwise) {
            const int value = g_key_file_get_integer(file, folder.c_str(), key, nullptr);
            return value > 0 ? std::min(value, largestSize) : otherwise;
        };
        const int scale = number("Scale", 1);
        const int size = number("Size", 0) * scale;
        const GText type{g_key_file_get_string(file, folder.c_str(), "Type", nullptr)};
        const std::string_view kind = type ? type.get() : "Threshold";
        Folder result{{}, size, size};
        if (kind == "Scalable") result = {{}, number("MinSize", size) * scale, number("MaxSize", size) * scale};
        if (kind == "Threshold") {
            const int threshold = number("Threshold", 2) * scale;
            result = {{}, size - threshold, size + threshold};
        }
        for (const auto& root : iconFolders) {
            std::error_code missing;
            result.path = (fs::path{root} / name / folder).string();
            if (fs::is_directory(result.path, missing)) m_folders.push_back(result);
        }
    }

    static constexpr int largestSize = 16'384; ///< pixels; far beyond any icon

    std::vector<Folder> m_folders; ///< that exist
};

IconTheme::Surroundings IconTheme::Surroundings::ofSession() {
    Surroundings result;
    const std::string dataFolder = g_get_user_data_dir();
    result.iconFolders = {std::string{g_get_home_dir()} + "/.icons", dataFolder + "/icons"};
    for (const auto* folder = g_get_system_data_dirs(); *folder != nullptr; ++folder) {
        result.iconFolders.push_back((fs::path{*folder} / "icons").string());
        result.pixmapFolders.push_back((fs::path{*folder} / "pixmaps").string());
    }
    const std::string configFolder = g_get_user_config_dir();
    result.themes = {chosenTheme(), setting(configFolder + "/gtk-3.0/settings.ini", "Settings", "gtk-icon-theme-name"),
                     setting(configFolder + "/kdeglobals", "Icons", "Theme")};
    std::erase(result.themes, "");
    return result;
}

IconTheme::IconTheme(Surroundings surroundings) : m_surroundings{std::move(surroundings)} {}

IconTheme::~IconTheme() = default;

std::optional<std::string> IconTheme::file(const std::string& name, int pixelSize) const {
    if (name.starts_with('/')) {
        const bool isPicture = name.ends_with(suffixes[0]) || name.ends_with(suffixes[1]);
        return isPicture && isFile(name) ? std::optional{name} : std::nullopt;
    }
    const auto icon = withoutSuffix(name);
    if (icon.empty() || icon.find('/') != std::string::npos) return std::nullopt;
    for (const auto& theme : themes()) {
        if (auto found = theme->file(icon, pixelSize)) return found;
    }
    for (const auto* folders : {&m_surroundings.iconFolders, &m_surroundings.pixmapFolders}) {
        for (const auto& folder : *folders) {
            if (auto found = fileIn(folder, icon)) return found;
        }
    }
    return std::nullopt;
}

const std::vector<std::unique_ptr<IconTheme::Theme>>& IconTheme::themes() const {
    if (std::exchange(m_areThemesRead, true)) return m_themes;
    for (const auto& name : m_surroundings.themes)
        addTheme(name);
    for (const auto* name : {lastTheme, "Adwaita", "breeze", "Papirus", "gnome"})
        addTheme(name);
    return m_themes;
}

/// With those that it inherits from behind it.
void IconTheme::addTheme(const std::string& name) const {
    const auto isKnown = std::ranges::any_of(m_themes, [&](const auto& theme) { return theme->name == name; });
    if (isKnown) return;
    m_themes.push_back(std::make_unique<Theme>(name, m_surroundings.iconFolders));
    for (const auto& parent : std::vector{m_themes.back()->parents}) {
        if (parent != lastTheme) addTheme(parent);
    }
}

} // namespace velmorin
