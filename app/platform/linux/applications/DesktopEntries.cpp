#include "app/platform/linux/applications/DesktopEntries.h"

#include "app/platform/linux/applications/CommandLine.h"
#include "app/platform/linux/applications/DesktopEntryFile.h"
#include "app/platform/linux/loop/GLibPointers.h"
#include "core/foundation/Text.h"

#include <algorithm>
#include <filesystem>
#include <gio/gio.h>
#include <set>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace velmorin {

namespace {

namespace fs = std::filesystem;

std::vector<std::string> split(const char* text) {
    std::vector<std::string> parts;
    std::string_view rest = text != nullptr ? text : "";
    while (!rest.empty()) {
        const auto end = std::min(rest.find(':'), rest.size());
        if (end > 0) parts.emplace_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return parts;
}

/// The path, or the folder on the way to it that is there.
std::string nearestExisting(fs::path path) {
    std::error_code missing;
    while (!fs::exists(path, missing) && path.has_relative_path())
        path = path.parent_path();
    return path.string();
}

} // namespace

/// Looks out for changes in the folders of the entries.
class DesktopEntries::Watch {
public:
    Watch() = default;
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    ~Watch() { clear(); }

    bool isStale() const { return m_isStale; }
    void startAnew() {
        clear();
        m_isStale = false;
    }
    /// One that is missing is waited for at the next that is there.
    void add(const std::string& folder) {
        const auto watched = nearestExisting(folder);
        const GOwned<GFile> file{g_file_new_for_path(watched.c_str())};
        GOwned<GFileMonitor> monitor{
            g_file_monitor_directory(file.get(), G_FILE_MONITOR_WATCH_MOVES, nullptr, nullptr)};
        if (!monitor) return; // no more watches to be had: entries are read anew when the program starts again
        m_places.push_back(std::make_unique<Place>(Place{this, folder, watched, std::move(monitor)}));
        auto* place = m_places.back().get();
        g_signal_connect(place->monitor.get(), "changed", G_CALLBACK(changed), place);
    }

private:
    struct Place {
        Watch* watch;
        std::string folder;
        std::string watched; ///< the folder itself, or what there is of the way to it
        GOwned<GFileMonitor> monitor;
    };

    static void changed(GFileMonitor*, GFile*, GFile*, GFileMonitorEvent, gpointer data) {
        const auto& place = *static_cast<Place*>(data);
        if (place.watched == place.folder || nearestExisting(place.folder) != place.watched)
            place.watch->m_isStale = true;
    }

    void clear() {
        for (const auto& place : m_places) {
            g_signal_handlers_disconnect_by_data(place->monitor.get(), place.get());
            g_file_monitor_cancel(place->monitor.get());
        }
        m_places.clear();
    }

    std::vector<std::unique_ptr<Place>> m_places;
    bool m_isStale = true;
};

struct DesktopEntries::Index {
    using ByName = std::unordered_map<std::string, std::size_t>; ///< places in `entries`

    std::vector<DesktopEntry> entries;
    std::vector<std::size_t> argumentCounts; ///< of each
    ByName byID;
    ByName byLowerID;
    ByName byClass;
    ByName byLowerClass;
    std::unordered_map<std::string, Found> byProgram;

    /// Each folder is watched before it is read: what changes in between is not missed.
    Index(const Surroundings& surroundings, Watch& watch) : m_surroundings{surroundings}, m_watch{watch} {
        for (const fs::path folder : surroundings.dataFolders) {
            if (folder.is_absolute()) read(folder / "applications", "");
        }
        enterAll();
        for (auto& [path, found] : byProgram)
            std::ranges::stable_sort(found, {}, [this](const auto* entry) { return rank(*entry); });
    }

    const DesktopEntry* find(const ByName& exact, const ByName& lower, std::string_view name) const {
        auto found = exact.find(std::string{name});
        if (found == exact.end()) {
            found = lower.find(lowercased(name));
            if (found == lower.end()) return nullptr;
        }
        return &entries[found->second];
    }

private:
    void read(const fs::path& folder, const std::string& prefix) {
        std::error_code missing;
        const auto real = fs::canonical(folder, missing).string();
        if (!real.empty() && !m_visited.insert(real).second) return; // links may lead in a circle
        m_watch.add(folder.string());
        for (const auto& path : contents(folder)) {
            if (path.extension() == ".desktop") {
                const auto id = prefix + path.stem().string();
                if (m_known.insert(id).second)
                    add(DesktopEntryFile::read(path.string(), id, m_surroundings.desktops, m_programs));
            } else if (fs::is_directory(path, missing)) {
                read(path, prefix + path.filename().string() + "-");
            }
        }
    }

    /// In an order that does not depend on the disk.
    static std::vector<fs::path> contents(const fs::path& folder) {
        std::error_code unreadable;
        std::vector<fs::path> paths;
        for (fs::directory_iterator each{folder, unreadable}, end; !unreadable && each != end;
             each.increment(unreadable))
            paths.push_back(each->path());
        std::ranges::sort(paths);
        return paths;
    }

    void add(std::optional<DesktopEntryFile> file) {
        if (!file || file->isHidden) return;
        entries.push_back(std::move(file->entry));
        argumentCounts.push_back(file->argumentCount);
    }

    void enterAll() {
        // Of several that claim a name, one that is shown has it.
        for (const bool isShown : {true, false}) {
            for (std::size_t place = 0; place < entries.size(); ++place) {
                if (entries[place].isShown == isShown) enter(place);
            }
        }
    }

    void enter(std::size_t place) {
        const auto& entry = entries[place];
        byID.emplace(entry.id, place);
        byLowerID.emplace(lowercased(entry.id), place);
        if (!entry.startupWMClass.empty()) {
            byClass.emplace(entry.startupWMClass, place);
            byLowerClass.emplace(lowercased(entry.startupWMClass), place);
        }
        if (!entry.program.empty()) byProgram[entry.program].push_back(&entry);
    }

    /// Smaller for an entry that rather stands for its program: shown, named like it, without arguments.
    std::tuple<bool, bool, std::size_t> rank(const DesktopEntry& entry) const {
        const auto id = std::string_view{entry.id}.substr(entry.id.rfind('.') + 1);
        const bool isNamesake = lowercased(id) == lowercased(CommandLine::fileName(entry.program));
        const auto place = static_cast<std::size_t>(&entry - entries.data());
        return {!entry.isShown, !isNamesake, argumentCounts[place]};
    }

    const Surroundings& m_surroundings;
    Watch& m_watch;
    ProgramPaths m_programs{m_surroundings.programFolders};
    std::set<std::string> m_visited; ///< folders
    std::set<std::string> m_known;   ///< ids that are taken, by a hidden entry too
};

DesktopEntries::Surroundings DesktopEntries::Surroundings::ofSession() {
    Surroundings result;
    result.dataFolders.emplace_back(g_get_user_data_dir());
    for (const auto* folder = g_get_system_data_dirs(); *folder != nullptr; ++folder)
        result.dataFolders.emplace_back(*folder);
    result.programFolders = split(g_getenv("PATH"));
    result.desktops = split(g_getenv("XDG_CURRENT_DESKTOP"));
    return result;
}

DesktopEntries::DesktopEntries(Surroundings surroundings)
    : m_surroundings{std::move(surroundings)}, m_watch{std::make_unique<Watch>()} {}

DesktopEntries::~DesktopEntries() = default;

const DesktopEntries::Index& DesktopEntries::index() const {
    if (!m_watch->isStale()) return *m_index;
    m_watch->startAnew();
    m_index = std::make_unique<Index>(m_surroundings, *m_watch);
    return *m_index;
}

const std::vector<DesktopEntry>& DesktopEntries::all() const {
    return index().entries;
}

const DesktopEntry* DesktopEntries::withID(std::string_view id) const {
    const auto& found = index();
    return found.find(found.byID, found.byLowerID, id);
}

const DesktopEntry* DesktopEntries::withWindowClass(std::string_view startupWMClass) const {
    const auto& found = index();
    return found.find(found.byClass, found.byLowerClass, startupWMClass);
}

const DesktopEntries::Found& DesktopEntries::running(std::string_view program) const {
    static const Found none;
    const auto& programs = index().byProgram;
    const auto found = programs.find(std::string{program});
    return found == programs.end() ? none : found->second;
}

} // namespace velmorin
