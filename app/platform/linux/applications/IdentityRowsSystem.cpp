#include "app/platform/linux/applications/IdentityRows.h"
#include "app/platform/linux/applications/IdentityTable.h"

#include <array>

namespace velmorin::IdentityTable {

namespace {

using enum Kind;

// Only programs count here, and only the file managers need names: the session opens one by them. What opens a command
// line or a settings page has no place here, whatever desktop it comes with; neither has anything that shows what a
// script tells it to.
constexpr std::array rows{
    Row{systemPart, ownBundleID, ownBundleID, "velmorin"},
    // The file managers that desktops come with, and who draws the desktop's background and icons.
    Row{systemPart, "com.apple.finder",
        "org.gnome.nautilus nautilus org.kde.dolphin nemo thunar org.xfce.thunar caja pcmanfm-qt pcmanfm peony "
        "io.elementary.files dde-file-manager com.system76.cosmicfiles caja-browser xfce-file-manager",
        "nautilus nautilus-desktop dolphin nemo nemo-desktop thunar caja pcmanfm pcmanfm-qt peony "
        "peony-qt-desktop io.elementary.files dde-file-manager dde-desktop cosmic-files xfdesktop"},
    // Shells, panels and docks, with what runs their applets.
    Row{systemPart, "com.apple.dock", "",
        "gnome-shell plasmashell xfce4-panel wrapper-2.0 wrapper-1.0 lxqt-panel lxpanel mate-panel cinnamon "
        "budgie-panel wingpanel io.elementary.wingpanel io.elementary.dock dde-dock dde-shell cosmic-panel "
        "cosmic-panel-button polybar tint2 plank latte-dock cairo-dock docky waybar i3bar swaybar xmobar lemonbar "
        "fbpanel perlpanel sfwbar nwg-dock nwg-panel wnck-applet clock-applet"},
    // The menus of applications that are programs of their own, and without which a desktop starts nothing. All they
    // start is judged by itself. Launchers that a user adds, or that run command lines, are ways round the lock.
    Row{systemPart, "com.apple.Spotlight", "",
        "dde-launcher io.elementary.applications-menu mate-brisk-menu brisk-menu"},
    Row{systemPart, "com.apple.WindowManager", "",
        "openbox xfwm4 kwin_x11 kwin_wayland mutter metacity marco muffin compiz gala budgie-wm deepin-kwin_x11 "
        "cosmic-comp i3 sway bspwm awesome fluxbox icewm jwm dwm herbstluftwm enlightenment fvwm fvwm3 twm ctwm cwm "
        "qtile wmaker picom compton hyprland labwc wayfire river xcompmgr"},
    // Password prompts: they come up in the midst of an allowed application.
    Row{systemPart, "com.apple.SecurityAgent", "",
        "polkit-gnome-authentication-agent-1 polkit-mate-authentication-agent-1 polkit-kde-authentication-agent-1 "
        "polkit-ukui-authentication-agent-1 lxqt-policykit-agent lxpolkit xfce-polkit mate-polkit dde-polkit-agent "
        "io.elementary.desktop.agent-polkit cosmic-osd budgie-polkit-dialog hyprpolkitagent "
        "polkit-efl-authentication-agent-1 gcr-prompter gcr4-ssh-askpass gcr-ssh-askpass "
        "pinentry-gnome3 pinentry-gtk-2 pinentry-gtk pinentry-qt pinentry-qt5 pinentry-x11 pinentry-qt4 "
        "pinentry-fltk pinentry-tqt pinentry-efl pinentry-qt6 kwalletd5 kwalletd6 kwalletd ksecretd ksshaskpass "
        "lxqt-openssh-askpass x11-ssh-askpass "
        "ssh-askpass gnome-ssh-askpass gnome-ssh-askpass2 gnome-ssh-askpass3"},
    Row{systemPart, "com.apple.ScreenSaver.Engine", "",
        "xscreensaver xscreensaver-gfx xscreensaver-auth xscreensaver-systemd gnome-screensaver "
        "gnome-screensaver-dialog mate-screensaver mate-screensaver-dialog xfce4-screensaver "
        "xfce4-screensaver-dialog cinnamon-screensaver cinnamon-screensaver-main.py cs-backup-locker light-locker "
        "i3lock slock xsecurelock xtrlock swaylock kscreenlocker_greet dde-lock lxlock"},
    // Logging in and out.
    Row{systemPart, "com.apple.loginwindow", "",
        "ksmserver ksmserver-logout-greeter gnome-session-quit gnome-session-binary xfce4-session "
        "xfce4-session-logout mate-session mate-session-save lxqt-leave lxqt-session lxsession-logout "
        "cinnamon-session cinnamon-session-quit lightdm-gtk-greeter dde-session-ui"},
    Row{systemPart, "com.apple.notificationcenterui", "",
        "dunst xfce4-notifyd notification-daemon mate-notification-daemon notify-osd lxqt-notificationd mako swaync "
        "cosmic-notifications io.elementary.notifications deadd-notification-center"},
    // What stands in the notification area, and what a user needs to type, hear or see at all.
    Row{systemPart, "com.apple.systemuiserver", "",
        "nm-applet blueman-applet blueman-tray pasystray cbatticon volumeicon trayer stalonetray "
        "xfce4-power-manager mate-power-manager mate-volume-control-status-icon xfce4-volumed-pulse "
        "ibus-daemon ibus-ui-gtk3 ibus-extension-gtk3 ibus-x11 ibus-ui-emojier ibus-engine-simple ibus-engine-m17n "
        "ibus-engine-libpinyin ibus-engine-table ibus-engine-mozc ibus-engine-anthy ibus-engine-cangjie "
        "ibus-engine-chewing ibus-engine-hangul ibus-engine-kkc ibus-engine-libzhuyin ibus-engine-pinyin "
        "ibus-engine-rime ibus-engine-skk ibus-engine-sunpinyin ibus-engine-typing-booster ibus-engine-unikey "
        "mozc_renderer fcitx fcitx5 fcitx-qimpanel "
        "uim-toolbar-gtk3 uim-toolbar-gtk uim-toolbar-qt5 uim-candwin-gtk3 uim-candwin-gtk uim-candwin-qt5 uim-xim "
        "scim scim-panel-gtk gcin hime nabi nimf kime-candidate-window kime-indicator kime-xim gxkb sbxkb "
        "onboard florence matchbox-keyboard maliit-keyboard maliit-server squeekboard phosh-osk-stub wvkbd-mobintl "
        "cellwriter xvkbd orca kmag kmousetool kaccess magnus xzoom "
        "mousetweaks"},
    // Portals: the dialogs in which applications open and save files. Their windows belong to these processes.
    Row{systemPart, "com.apple.coreservices.uiagent", "",
        "xdg-desktop-portal-gtk xdg-desktop-portal-gnome xdg-desktop-portal-kde xdg-desktop-portal-xapp "
        "xdg-desktop-portal-lxqt xdg-desktop-portal-wlr xdg-desktop-portal-cosmic xdg-desktop-portal-pantheon "
        "xdg-desktop-portal xdg-desktop-portal-hyprland xdg-desktop-portal-dde xdg-desktop-portal-phosh "
        "xdg-desktop-portal-luminous"},
};

} // namespace

std::span<const Row> systemRows() {
    return rows;
}

} // namespace velmorin::IdentityTable
