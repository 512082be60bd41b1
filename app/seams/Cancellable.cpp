#include "app/seams/Cancellable.h"

#include <utility>

namespace velmorin {

Cancellable::Cancellable(std::function<void()> cancelWork) : m_cancel{std::move(cancelWork)} {}

Cancellable::Cancellable(Cancellable&& other) noexcept : m_cancel{std::exchange(other.m_cancel, nullptr)} {}

Cancellable& Cancellable::operator=(Cancellable&& other) noexcept {
    if (this != &other) {
        cancel();
        m_cancel = std::exchange(other.m_cancel, nullptr);
    }
    return *this;
}

Cancellable::~Cancellable() {
    cancel();
}

void Cancellable::cancel() {
    if (const auto call = std::exchange(m_cancel, nullptr)) call();
}

void Cancellable::detach() {
    m_cancel = nullptr;
}

} // namespace velmorin
