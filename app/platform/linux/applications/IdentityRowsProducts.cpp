#include "app/platform/linux/applications/IdentityRows.h"

#include <array>

namespace velmorin::IdentityTable {

namespace {

using enum Kind;

constexpr std::array rows{
    // What the core knows by a name of its own.
    Row{product, "com.google.Chrome",
        "google-chrome google-chrome-stable com.google.chrome chromium chromium-browser org.chromium.chromium "
        "google-chrome-beta google-chrome-unstable google-chrome-dev google-chrome-canary com.google.chromedev "
        "com.google.chromebeta chromium-freeworld io.github.ungoogled_software.ungoogled_chromium ungoogled-chromium",
        "chrome google-chrome google-chrome-stable google-chrome-beta google-chrome-unstable chromium "
        "chromium-browser chromium-freeworld"},
    Row{product, "org.mozilla.firefox",
        "firefox firefox-esr org.mozilla.firefox firefox-beta firefox-developer-edition firefoxdeveloperedition "
        "firefox-aurora firefox-devedition firefox-nightly org.mozilla.firefoxnightly",
        "firefox firefox-bin firefox-esr firefox-beta firefox-developer-edition firefox-devedition firefox-nightly"},
    Row{product, "com.brave.Browser",
        "brave-browser brave com.brave.browser brave-browser-beta brave-browser-nightly brave-browser-dev "
        "brave-origin",
        "brave brave-browser brave-browser-stable"},
    Row{product, "com.microsoft.edgemac",
        "microsoft-edge microsoft-edge-stable com.microsoft.edge microsoft-edge-beta microsoft-edge-dev "
        "microsoft-edge-canary com.microsoft.edgedev",
        "msedge microsoft-edge microsoft-edge-stable"},
    Row{product, "com.operasoftware.Opera", "opera opera-stable com.opera.opera opera-beta opera-developer",
        "opera opera-beta opera-developer"},
    Row{product, "com.vivaldi.Vivaldi",
        "vivaldi-stable vivaldi com.vivaldi.vivaldi vivaldi_vivaldi-stable vivaldi-snapshot", "vivaldi vivaldi-bin"},

    // Browsers that no extension of ours reads.
    Row{unsupportedBrowser, "org.gnome.Epiphany",
        "org.gnome.epiphany epiphany epiphany-browser org.gnome.epiphany.devel", "epiphany epiphany-browser"},
    Row{unsupportedBrowser, "org.kde.falkon", "org.kde.falkon falkon", "falkon"},
    Row{unsupportedBrowser, "org.kde.konqueror", "org.kde.konqueror konqueror kfmclient_html konqbrowser", "konqueror"},
    Row{unsupportedBrowser, "org.kde.angelfish", "org.kde.angelfish angelfish", "angelfish"},
    Row{unsupportedBrowser, "midori", "org.midori_browser.midori midori astian-midori", "midori"},
    Row{unsupportedBrowser, "librewolf", "librewolf io.gitlab.librewolf-community librewolf-default", "librewolf"},
    Row{unsupportedBrowser, "torbrowser",
        "torbrowser org.torproject.torbrowser-launcher start-tor-browser tor-browser torbrowser-alpha", ""},
    Row{unsupportedBrowser, "mullvad-browser", "mullvad-browser net.mullvad.mullvadbrowser mullvadbrowser",
        "mullvadbrowser"},
    Row{unsupportedBrowser, "org.qutebrowser.qutebrowser", "org.qutebrowser.qutebrowser qutebrowser", "qutebrowser"},
    Row{unsupportedBrowser, "waterfox", "waterfox net.waterfox.waterfox waterfox-default waterfox-g",
        "waterfox waterfox-bin"},
    Row{unsupportedBrowser, "floorp", "floorp one.ablaze.floorp", "floorp floorp-bin"},
    Row{unsupportedBrowser, "zen", "zen app.zen_browser.zen zen-browser zen-alpha zen-beta zen-twilight", "zen-bin"},
    Row{unsupportedBrowser, "palemoon", "palemoon pale-moon", "palemoon"},
    Row{unsupportedBrowser, "basilisk", "basilisk basilisk-browser", "basilisk"},
    Row{unsupportedBrowser, "icecat", "icecat gnu-icecat", "icecat"},
    Row{unsupportedBrowser, "seamonkey", "seamonkey org.mozilla.seamonkey", "seamonkey seamonkey-bin"},
    Row{unsupportedBrowser, "otter-browser", "otter-browser com.otter_browser.otter-browser", "otter-browser"},
    Row{unsupportedBrowser, "min", "min min-browser com.github.minbrowser.min", ""},
    Row{unsupportedBrowser, "nyxt", "nyxt engineer.atlas.nyxt", "nyxt"},
    Row{unsupportedBrowser, "luakit", "luakit org.luakit.luakit", "luakit"},
    Row{unsupportedBrowser, "surf", "surf", "surf"},
    Row{unsupportedBrowser, "vimb", "vimb", "vimb"},
    Row{unsupportedBrowser, "netsurf", "netsurf netsurf-gtk org.netsurf_browser.netsurf",
        "netsurf netsurf-gtk netsurf-gtk3"},
    Row{unsupportedBrowser, "dillo", "dillo org.dillo.dillo", "dillo"},
    Row{unsupportedBrowser, "links2", "links2 links", "links2 xlinks2"},
    Row{unsupportedBrowser, "com.github.Eloston.Thorium", "thorium-browser thorium", "thorium thorium-browser"},
    Row{unsupportedBrowser, "yandex-browser", "yandex-browser yandex-browser-beta ru.yandex.browser",
        "yandex_browser yandex-browser"},
    Row{unsupportedBrowser, "slimjet", "slimjet flashpeak-slimjet", "slimjet flashpeak-slimjet"},
    Row{unsupportedBrowser, "iridium-browser", "iridium-browser", "iridium-browser"},
    Row{unsupportedBrowser, "naver-whale", "naver-whale naver-whale-stable", "whale"},
    Row{unsupportedBrowser, "org.gnome.Eolie", "org.gnome.eolie eolie", "eolie"},
    Row{unsupportedBrowser, "ephemeral", "com.github.cassidyjames.ephemeral ephemeral",
        "com.github.cassidyjames.ephemeral"},
};

} // namespace

std::span<const Row> productRows() {
    return rows;
}

} // namespace velmorin::IdentityTable
