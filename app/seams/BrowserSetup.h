#pragma once

#include "core/rules/BrowserKind.h"

#include <string>

namespace velmorin {

/// Where a browser can only be read once its user has added something to it: what there is to add, and what can be done
/// for the user. Main thread.
class BrowserSetup {
public:
    virtual ~BrowserSetup() = default;

    /// What to open in the browser to come to the page where it is added.
    virtual std::string pageAddress(BrowserKind kind) const = 0;
    /// The folder to choose there, an absolute path.
    virtual std::string folder(BrowserKind kind) const = 0;
    /// Tells the browser of this program, so that what is added finds it. Harmless when repeated. False when that
    /// failed, so that nothing that the user adds would help.
    virtual bool introduce(BrowserKind kind) = 0;
};

} // namespace velmorin
