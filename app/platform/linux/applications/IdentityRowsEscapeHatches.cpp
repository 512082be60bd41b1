#include "app/platform/linux/applications/IdentityRows.h"

#include <array>

namespace velmorin::IdentityTable {

namespace {

using enum Kind;

constexpr std::array rows{
    // Terminals. Three the core knows itself.
    Row{escapeHatch, "com.mitchellh.ghostty", "com.mitchellh.ghostty ghostty", "ghostty"},
    Row{escapeHatch, "dev.warp.Warp-Stable", "dev.warp.warp dev.warp.warp-stable warp-terminal", "warp warp-terminal"},
    Row{escapeHatch, "debian-xterm", "debian-xterm xterm debian-uxterm uxterm koi8rxterm lxterm",
        "xterm uxterm koi8rxterm lxterm"},
    Row{escapeHatch, "org.gnome.Terminal", "org.gnome.terminal gnome-terminal gnome-terminal-server",
        "gnome-terminal gnome-terminal-server gnome-terminal.real"},
    Row{escapeHatch, "org.gnome.Console", "org.gnome.console kgx org.gnome.console.devel", "kgx"},
    Row{escapeHatch, "org.gnome.Ptyxis", "org.gnome.ptyxis ptyxis app.devsuite.ptyxis", "ptyxis ptyxis-agent"},
    Row{escapeHatch, "com.raggesilver.BlackBox", "com.raggesilver.blackbox blackbox-terminal", "blackbox"},
    Row{escapeHatch, "org.kde.konsole", "org.kde.konsole konsole org.kde.konsole-partialwayland", "konsole"},
    Row{escapeHatch, "org.kde.yakuake", "org.kde.yakuake yakuake", "yakuake"},
    Row{escapeHatch, "xfce4-terminal", "xfce4-terminal org.xfce.terminal xfce4-terminal-emulator", "xfce4-terminal"},
    Row{escapeHatch, "mate-terminal", "mate-terminal", "mate-terminal"},
    Row{escapeHatch, "lxterminal", "lxterminal", "lxterminal"},
    Row{escapeHatch, "qterminal", "qterminal qterminal-drop qterminal_drop", "qterminal"},
    Row{escapeHatch, "deepin-terminal", "deepin-terminal deepin-terminal-gtk", "deepin-terminal"},
    Row{escapeHatch, "io.elementary.terminal", "io.elementary.terminal pantheon-terminal", "io.elementary.terminal"},
    Row{escapeHatch, "com.system76.CosmicTerm", "com.system76.cosmicterm cosmic-term", "cosmic-term"},
    Row{escapeHatch, "kitty", "kitty net.kovidgoyal.kitty", "kitty"},
    Row{escapeHatch, "Alacritty", "alacritty org.alacritty.alacritty com.alacritty.alacritty", "alacritty"},
    Row{escapeHatch, "org.wezfurlong.wezterm", "org.wezfurlong.wezterm wezterm wezterm-gui", "wezterm wezterm-gui"},
    Row{escapeHatch, "org.codeberg.dnkl.foot",
        "org.codeberg.dnkl.foot foot footclient org.codeberg.dnkl.footclient "
        "foot-server org.codeberg.dnkl.foot-server",
        "foot footclient"},
    Row{escapeHatch, "com.gexperts.Tilix", "com.gexperts.tilix tilix", "tilix"},
    Row{escapeHatch, "terminator", "terminator", "terminator"},
    Row{escapeHatch, "terminology", "terminology org.enlightenment.terminology", "terminology"},
    Row{escapeHatch, "guake", "guake org.guake.guake", "guake"},
    Row{escapeHatch, "tilda", "tilda", "tilda"},
    Row{escapeHatch, "sakura", "sakura", "sakura"},
    Row{escapeHatch, "roxterm", "roxterm", "roxterm"},
    Row{escapeHatch, "termit", "termit", "termit"},
    Row{escapeHatch, "stterm", "stterm st st-256color", "st stterm"},
    Row{escapeHatch, "rxvt-unicode", "rxvt-unicode rxvt urxvt rxvt-unicode-256color urxvtc debian-rxvt",
        "urxvt rxvt urxvtd urxvtc rxvt-unicode rxvt-xpm rxvt-unicode-256color"},
    Row{escapeHatch, "mlterm", "mlterm", "mlterm"},
    Row{escapeHatch, "eterm", "eterm", "eterm"},
    Row{escapeHatch, "aterm", "aterm", "aterm"},
    Row{escapeHatch, "zutty", "zutty", "zutty"},
    Row{escapeHatch, "cool-retro-term", "cool-retro-term", "cool-retro-term"},
    Row{escapeHatch, "contour", "org.contourterminal.contour contour", "contour"},
    Row{escapeHatch, "rio", "rio com.rioterm.rio", "rio"},
    Row{escapeHatch, "hyper", "hyper co.zeit.hyper", "hyper"},
    Row{escapeHatch, "tabby", "tabby org.tabby", "tabby"},
    Row{escapeHatch, "waveterm", "waveterm dev.commandline.waveterm", "waveterm"},
    Row{escapeHatch, "extraterm", "extraterm", "extraterm"},

    // What shows and ends processes and services.
    Row{escapeHatch, "gnome-system-monitor",
        "gnome-system-monitor org.gnome.systemmonitor gnome-system-monitor-kde org.gnome.systemmonitor.devel",
        "gnome-system-monitor"},
    Row{escapeHatch, "io.missioncenter.MissionCenter", "io.missioncenter.missioncenter missioncenter", "missioncenter"},
    Row{escapeHatch, "net.nokyan.Resources", "net.nokyan.resources", ""},
    Row{escapeHatch, "org.gnome.Usage", "org.gnome.usage gnome-usage", "gnome-usage"},
    Row{escapeHatch, "org.kde.plasma-systemmonitor", "org.kde.plasma-systemmonitor plasma-systemmonitor",
        "plasma-systemmonitor"},
    Row{escapeHatch, "org.kde.ksysguard", "org.kde.ksysguard ksysguard", "ksysguard"},
    Row{escapeHatch, "xfce4-taskmanager", "xfce4-taskmanager", "xfce4-taskmanager"},
    Row{escapeHatch, "mate-system-monitor", "mate-system-monitor", "mate-system-monitor"},
    Row{escapeHatch, "lxtask", "lxtask", "lxtask"},
    Row{escapeHatch, "qps", "qps", "qps"},
    Row{escapeHatch, "deepin-system-monitor", "deepin-system-monitor", "deepin-system-monitor"},
    Row{escapeHatch, "stacer", "stacer", "stacer"},
    Row{escapeHatch, "systemdgenie", "org.kde.systemdgenie systemdgenie", "systemdgenie"},
    Row{escapeHatch, "htop", "htop", ""},
    Row{escapeHatch, "btop", "btop bpytop bashtop", ""},
    Row{escapeHatch, "top", "top atop glances nmon gotop", ""},
    Row{escapeHatch, "xkill", "xkill", "xkill"},

    // System settings, session and package tools.
    Row{escapeHatch, "org.gnome.Settings", "org.gnome.settings gnome-control-center unity-control-center",
        "gnome-control-center unity-control-center"},
    Row{escapeHatch, "org.gnome.Extensions",
        "org.gnome.extensions org.gnome.shell.extensions com.mattjakeman.extensionmanager", "extension-manager"},
    Row{escapeHatch, "org.gnome.tweaks", "org.gnome.tweaks gnome-tweaks gnome-tweak-tool", "gnome-tweaks"},
    Row{escapeHatch, "ca.desrt.dconf-editor", "ca.desrt.dconf-editor dconf-editor", "dconf-editor"},
    Row{escapeHatch, "systemsettings", "systemsettings org.kde.systemsettings kdesystemsettings systemsettings5",
        "systemsettings systemsettings5 kcmshell5 kcmshell6"},
    Row{escapeHatch, "xfce-settings-manager", "xfce-settings-manager xfce4-settings-manager", "xfce4-settings-manager"},
    Row{escapeHatch, "xfce4-session-settings", "xfce4-session-settings xfce-session-settings",
        "xfce4-session-settings"},
    Row{escapeHatch, "xfce4-settings-editor", "xfce4-settings-editor", "xfce4-settings-editor"},
    Row{escapeHatch, "mate-control-center", "matecc mate-control-center", "mate-control-center"},
    Row{escapeHatch, "mate-session-properties", "mate-session-properties", "mate-session-properties"},
    Row{escapeHatch, "cinnamon-settings", "cinnamon-settings cinnamon-settings.py",
        "cinnamon-settings cinnamon-settings.py"},
    Row{escapeHatch, "lxqt-config", "lxqt-config lxqt-config-session", "lxqt-config lxqt-config-session"},
    Row{escapeHatch, "lxsession-edit", "lxsession-edit lxsession-default-apps", "lxsession-edit"},
    Row{escapeHatch, "io.elementary.settings", "io.elementary.settings io.elementary.switchboard",
        "io.elementary.settings io.elementary.switchboard"},
    Row{escapeHatch, "com.system76.CosmicSettings", "com.system76.cosmicsettings cosmic-settings", "cosmic-settings"},
    Row{escapeHatch, "dde-control-center", "dde-control-center org.deepin.dde.control-center", "dde-control-center"},
    Row{escapeHatch, "budgie-control-center", "budgie-control-center org.buddiesofbudgie.controlcenter",
        "budgie-control-center"},
    Row{escapeHatch, "gnome-session-properties", "gnome-session-properties", "gnome-session-properties"},

    // What acts in the user's place, runs a command line, or holds a whole desktop of its own.
    Row{escapeHatch, "autokey", "autokey-gtk autokey-qt autokey", "autokey-gtk autokey-qt autokey"},
    Row{escapeHatch, "actiona", "actiona", "actiona"},
    Row{escapeHatch, "sikulix", "sikulix sikulixide", ""},
    Row{escapeHatch, "xmacro", "xmacro gnee", "gnee"},
    Row{escapeHatch, "gmrun", "gmrun", "gmrun"},
    Row{escapeHatch, "org.kde.krunner", "org.kde.krunner krunner", "krunner"},
    Row{escapeHatch, "xfce4-appfinder", "xfce4-appfinder xfce4-run org.xfce.appfinder", "xfce4-appfinder"},
    Row{escapeHatch, "lxqt-runner", "lxqt-runner", "lxqt-runner"},
    Row{escapeHatch, "rofi", "rofi", "rofi"},
    Row{escapeHatch, "wofi", "wofi", "wofi"},
    Row{escapeHatch, "dmenu", "dmenu", "dmenu"},
    Row{escapeHatch, "jgmenu", "jgmenu", "jgmenu"},
    Row{escapeHatch, "ulauncher", "ulauncher io.ulauncher.ulauncher", "ulauncher"},
    Row{escapeHatch, "albert", "albert", "albert"},
    Row{escapeHatch, "synapse", "synapse", "synapse"},
    Row{escapeHatch, "kupfer", "kupfer", "kupfer kupfer.py"},
    Row{escapeHatch, "xephyr", "xephyr xnest", "xephyr xnest"},
};

} // namespace

std::span<const Row> escapeHatchRows() {
    return rows;
}

} // namespace velmorin::IdentityTable
