#include "app/platform/linux/applications/ApplicationIdentities.h"

namespace velmorin {

ApplicationIdentity ApplicationIdentities::identify(const WindowFacts& window) const {
    static_cast<void>(window);
    return {};
}

} // namespace velmorin
