#pragma once

#include <memory>
#include <utility>

namespace velmorin {

/// A member by which an object tells those who call it later whether it is still there. Main thread.
class Lifetime {
public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    /// `call`, but doing nothing once the object that owns this is gone. For calls without a result.
    template <class Call>
    auto guard(Call call) const {
        return [alive = std::weak_ptr<const char>{m_alive}, call = std::move(call)](auto&&... arguments) mutable {
            if (!alive.expired()) call(std::forward<decltype(arguments)>(arguments)...);
        };
    }

private:
    std::shared_ptr<const char> m_alive = std::make_shared<const char>();
};

} // namespace velmorin
