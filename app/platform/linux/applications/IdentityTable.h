#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the core calls the applications of Linux. Names here are those of desktop entries (without ".desktop"),
/// Flatpaks, snaps ("name_command") and window classes; they are compared without regard to the case of letters, and
/// always as a whole. Pure; any thread.
namespace velmorin::IdentityTable {

/// This program's own.
inline constexpr std::string_view ownBundleID = "com.kestrava.velmorin";

/// The identifier for an application of that name: the core's where it is a product that the core knows, one and the
/// same where a product has several names, else the name itself. What only a part of the system may be called comes
/// back marked, so that the core does not know it: a name is a claim.
std::string bundleID(std::string_view name);

/// An identifier that is only claimed, marked so that the core knows nothing of that name.
std::string unconfirmed(std::string_view bundleID);

/// The identifier for what runs a program with this file name, where the table has it. A part of the system is only
/// told by its program, and only where that was put there by the system (`isOfSystem`).
std::optional<std::string_view> bundleIDOfProgram(std::string_view program, bool isOfSystem);

/// Whether an identifier frees an application from the lock, so that it takes more than a name to have it.
bool isReserved(std::string_view bundleID);

/// The names under which the application of an identifier may be installed, the preferred one first; at least the
/// identifier itself.
std::vector<std::string_view> namesOf(std::string_view bundleID);

/// Whether the lock could be ended or got round with an application: the terminals, task managers, system settings and
/// automation tools of Linux, besides those that the core knows.
bool isEscapeHatch(std::string_view bundleID);

/// Whether it is a browser of Linux whose tabs cannot be read, besides those that the core knows.
bool isUnsupportedBrowser(std::string_view bundleID);

} // namespace velmorin::IdentityTable
