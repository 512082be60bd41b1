#pragma once

#include <cassert>
#include <memory>
#include <thread>
#include <utility>

namespace velmorin {

/// A member by which an object tells those who call it later whether it is still there. Such a call must come on the
/// thread on which the object was made, which is asserted.
class Lifetime {
public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    /// `call`, but doing nothing once the object that owns this is gone. For calls without a result.
    template <class Call>
    auto guard(Call call) const {
        return [mark = std::weak_ptr{m_mark}, call = std::move(call)](auto&&... arguments) mutable {
            const auto held = mark.lock();
            if (!held) return;
            assert(held->thread == std::this_thread::get_id());
            call(std::forward<decltype(arguments)>(arguments)...);
        };
    }

private:
    struct Mark {
        std::thread::id thread = std::this_thread::get_id();
    };
    std::shared_ptr<const Mark> m_mark = std::make_shared<const Mark>();
};

} // namespace velmorin
