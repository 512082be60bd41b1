#pragma once

#include "app/platform/linux/browsers/KnownBrowsers.h"

#include <string>
#include <string_view>

/// How browsers are told of the host: a small JSON file with its name, in a folder that they look into.
namespace velmorin::HostManifest {

/// The name by which the extension asks for the host, and the file's, but for its ending.
constexpr std::string_view name = "com.kestrava.velmorin";
constexpr std::string_view fileName = "com.kestrava.velmorin.json";
/// The extension, as Chromium and its kin know it, and as Firefox does. The first follows from the key in the
/// extension's manifest.
constexpr std::string_view chromiumExtension = "cjoplcghhhecbifmooggfhblnfgmeopm";
constexpr std::string_view firefoxExtension = "velmorin@kestrava.com";

/// The content of the file, for a host at this absolute path. Empty where the path cannot be written down: it is not
/// absolute, or holds control characters.
std::string content(KnownBrowser::Family family, std::string_view program);

/// Whether the arguments that a browser has started the host with name our extension.
bool isStartedFor(std::string_view firstArgument, std::string_view secondArgument);

} // namespace velmorin::HostManifest
