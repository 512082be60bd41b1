#include "app/platform/linux/browsers/LinuxBrowserSetup.h"

#include "app/platform/linux/browsers/HostInstallation.h"

#include <system_error>

namespace velmorin {

namespace {

/// The family of a browser; Chromium's for one that this system does not have.
KnownBrowser::Family familyOf(BrowserKind kind) {
    const auto* const known = browserWithIdentity(bundleID(kind));
    return known == nullptr ? KnownBrowser::Family::chromium : known->family;
}

} // namespace

std::string LinuxBrowserSetup::pageAddress(BrowserKind kind) const {
    return familyOf(kind) == KnownBrowser::Family::firefox ? "about:addons" : "chrome://extensions";
}

std::string LinuxBrowserSetup::folder(BrowserKind kind) const {
    return (m_extensions / (familyOf(kind) == KnownBrowser::Family::firefox ? "firefox" : "chromium")).string();
}

bool LinuxBrowserSetup::introduce(BrowserKind kind) {
    std::error_code error;
    const auto folders = UserFolders::current();
    if (!folders || !std::filesystem::is_regular_file(m_host, error)) return false;
    bool isDone = true;
    for (const auto& place : manifestPlaces(*folders)) {
        if (place.family == familyOf(kind) && installManifest(place, m_host)) isDone = false;
    }
    return isDone;
}

} // namespace velmorin
