#pragma once

#include "core/foundation/Fields.h"
#include "core/language/AppLanguage.h"
#include "core/session/ColorTheme.h"

#include <string>
#include <tuple>
#include <type_traits>

namespace velmorin {

/// The user's preferences. The one stored type that outlives changes of its own layout: what is missing is at its
/// default, and a language or theme that this build does not know costs only that setting.
struct AppSettings {
    bool useFocusShortcuts = false; ///< run the two shortcuts when a session starts and ends
    std::string focusOnShortcut = "Velmorin On";
    std::string focusOffShortcut = "Velmorin Off";
    bool showFloatingTimer = true;
    bool showQuoteBackdrop = true;
    AppLanguage language = AppLanguage::persian;
    ColorTheme colorTheme = ColorTheme::dusk;
    bool lockPhoneToo = false; ///< lock the paired phone during sessions

    bool operator==(const AppSettings&) const = default;
};

constexpr auto fields(std::type_identity<AppSettings>) {
    return std::tuple{
        field("useFocusShortcuts", &AppSettings::useFocusShortcuts, Presence::defaulted),
        field("focusOnShortcut", &AppSettings::focusOnShortcut, Presence::defaulted),
        field("focusOffShortcut", &AppSettings::focusOffShortcut, Presence::defaulted),
        field("showFloatingTimer", &AppSettings::showFloatingTimer, Presence::defaulted),
        field("showQuoteBackdrop", &AppSettings::showQuoteBackdrop, Presence::defaulted),
        field("language", &AppSettings::language, Presence::tolerant),
        field("colorTheme", &AppSettings::colorTheme, Presence::tolerant),
        field("lockPhoneToo", &AppSettings::lockPhoneToo, Presence::defaulted),
    };
}

} // namespace velmorin
