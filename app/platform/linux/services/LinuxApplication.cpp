#include "app/platform/linux/services/LinuxApplication.h"

#include <unistd.h>
#include <utility>

namespace velmorin {

LinuxApplication::LinuxApplication(MainLoop& loop, std::optional<std::string> identifier,
                                   std::function<void()> onQuitRequest)
    : m_loop{loop},
      m_identifier{std::move(identifier)},
      m_onQuitRequest{std::move(onQuitRequest)},
      m_sessionEnd{m_identifier.value_or("velmorin"), {[this] { m_powerOff.notify(); }, [this] { terminate(); }}} {}

std::int32_t LinuxApplication::processIdentifier() const {
    return ::getpid();
}

void LinuxApplication::terminate() {
    m_loop.post(m_lifetime.guard([this] { m_onQuitRequest(); }));
}

Cancellable LinuxApplication::observePowerOff(std::function<void()> call) {
    return m_powerOff.add(std::move(call));
}

} // namespace velmorin
