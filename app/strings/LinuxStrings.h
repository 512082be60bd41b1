#pragma once

#include "app/strings/AppStrings.h"
#include "core/language/AppLanguage.h"

#include <array>
#include <string_view>

/// The texts where nobody has a Mac: those of AppStrings, but for the few that name the Mac, its settings, its
/// Shortcuts app or the signs of its keys. Constants; any thread.
namespace velmorin::LinuxStrings {

/// All texts of a language.
const AppStrings& of(AppLanguage language);

/// The keys that open what takes a thought from anywhere, as they are written in a language.
std::string_view thoughtKeys(AppLanguage language);

/// The texts that are replaced; besides them only the function `noAutomation` is. `phoneScanHint` stays although it
/// names the Mac: it quotes a button of the phone's app.
inline constexpr std::array<std::string_view AppStrings::*, 11> replaced{
    &AppStrings::thoughtsHint,     &AppStrings::runShortcuts,       &AppStrings::shortcutStart,
    &AppStrings::shortcutEnd,      &AppStrings::shortcutHelp,       &AppStrings::phoneLockToo,
    &AppStrings::phoneOneWayNote,  &AppStrings::permissionChecking, &AppStrings::permissionDenied,
    &AppStrings::writeThoughtHelp, &AppStrings::menuWriteThought,
};

} // namespace velmorin::LinuxStrings
