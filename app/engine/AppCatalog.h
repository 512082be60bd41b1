#pragma once

#include "app/seams/InstalledApplications.h"
#include "app/seams/Workspace.h"
#include "core/language/AppLanguage.h"

#include <optional>
#include <string_view>
#include <vector>

/// The applications among which a profile's are chosen. Main thread.
namespace velmorin::AppCatalog {

/// What is installed, with what runs from anywhere else added and this program left out, by name as the language sorts,
/// the case of letters not counting. Each identifier comes once: what was found first stays.
std::vector<InstalledApp> scan(const InstalledApplications& installed, const Workspace& workspace,
                               const std::optional<std::string>& selfBundleID, AppLanguage language);

/// Those whose name holds what was typed, the case of letters not counting; all of them when nothing was.
std::vector<InstalledApp> filtered(const std::vector<InstalledApp>& apps, std::string_view query);

} // namespace velmorin::AppCatalog
