#pragma once

#include "core/language/AppLanguage.h"

#include <string>
#include <string_view>

namespace velmorin {

/// The texts on screen that not every system needs, one constant instance per language: how a browser is made readable
/// where its user has to add an extension. What is quoted are the browser's own words. Constants; any thread.
struct PlatformStrings {
    std::string (*setUpBrowser)(std::string_view browser);
    std::string (*openPage)(std::string_view address);
    std::string_view switchOnDeveloperMode;
    std::string (*loadFolder)(std::string_view folder);
    std::string_view allowInPrivateWindows;
    std::string_view checkAfterwards;
    std::string_view copyAddress;
    std::string_view copyFolder;
    std::string_view notIntroduced; ///< the browsers could not be told of this program

    static const PlatformStrings persian;
    static const PlatformStrings english;
    static const PlatformStrings german;

    /// The instance of a language.
    static const PlatformStrings& of(AppLanguage language);
};

} // namespace velmorin
