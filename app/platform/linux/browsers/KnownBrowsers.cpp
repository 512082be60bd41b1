#include "app/platform/linux/browsers/KnownBrowsers.h"

#include <algorithm>
#include <array>

namespace velmorin {

namespace {

using Names = std::string_view;

constexpr std::array<Names, 8> chromeExecutables{"chromium",           "chrome",
                                                 "chromium-browser",   "chromium-freeworld",
                                                 "google-chrome",      "google-chrome-stable",
                                                 "google-chrome-beta", "google-chrome-unstable"};
constexpr std::array<Names, 4> chromeFolders{"chromium", "google-chrome", "google-chrome-beta",
                                             "google-chrome-unstable"};
constexpr std::array<Names, 7> firefoxExecutables{
    "firefox-esr",        "firefox",        "firefox-bin", "firefox-beta", "firefox-developer-edition",
    "firefox-devedition", "firefox-nightly"};
constexpr std::array<Names, 3> braveExecutables{"brave", "brave-browser", "brave-browser-stable"};
constexpr std::array<Names, 1> braveFolders{"BraveSoftware/Brave-Browser"};
constexpr std::array<Names, 3> edgeExecutables{"msedge", "microsoft-edge", "microsoft-edge-stable"};
constexpr std::array<Names, 1> edgeFolders{"microsoft-edge"};
constexpr std::array<Names, 3> operaExecutables{"opera", "opera-beta", "opera-developer"};
constexpr std::array<Names, 1> operaFolders{"opera"};
constexpr std::array<Names, 2> vivaldiExecutables{"vivaldi-bin", "vivaldi"};
constexpr std::array<Names, 1> vivaldiFolders{"vivaldi"};

constexpr auto chromium = KnownBrowser::Family::chromium;
constexpr auto firefox = KnownBrowser::Family::firefox;

constexpr std::array<KnownBrowser, 6> table{{
    {"com.google.Chrome", chromium, chromeExecutables, chromeFolders},
    {"org.mozilla.firefox", firefox, firefoxExecutables, {}},
    {"com.brave.Browser", chromium, braveExecutables, braveFolders},
    {"com.microsoft.edgemac", chromium, edgeExecutables, edgeFolders},
    {"com.operasoftware.Opera", chromium, operaExecutables, operaFolders},
    {"com.vivaldi.Vivaldi", chromium, vivaldiExecutables, vivaldiFolders},
}};

} // namespace

std::span<const KnownBrowser> knownBrowsers() {
    return table;
}

const KnownBrowser* browserWithIdentity(std::string_view identity) {
    const auto* const found = std::ranges::find(table, identity, &KnownBrowser::identity);
    return found != table.end() ? found : nullptr;
}

const KnownBrowser* browserOfExecutable(std::string_view path) {
    constexpr std::string_view deleted = " (deleted)";
    if (path.ends_with(deleted)) path.remove_suffix(deleted.size());
    const auto name = path.substr(path.rfind('/') + 1);
    const auto* const found = std::ranges::find_if(table, [name](const KnownBrowser& browser) {
        return std::ranges::find(browser.executables, name) != browser.executables.end();
    });
    return found != table.end() ? found : nullptr;
}

} // namespace velmorin
