#pragma once

#include "app/seams/BrowserSetup.h"

#include <filesystem>

namespace velmorin {

/// The extension that makes a browser readable, and the manifests by which browsers find the host. No browser lets
/// another program open its page of extensions, so that its address is only told. Main thread.
class LinuxBrowserSetup final : public BrowserSetup {
public:
    /// `host` is the program that the extension speaks to, `extensions` the folder that holds one for each family of
    /// browsers. Both absolute.
    LinuxBrowserSetup(std::filesystem::path host, std::filesystem::path extensions)
        : m_host{std::move(host)}, m_extensions{std::move(extensions)} {}

    std::string pageAddress(BrowserKind kind) const override;
    std::string folder(BrowserKind kind) const override;
    bool introduce(BrowserKind kind) override;

private:
    std::filesystem::path m_host;
    std::filesystem::path m_extensions;
};

} // namespace velmorin
