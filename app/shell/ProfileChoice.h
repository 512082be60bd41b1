#pragma once

#include "app/engine/AppData.h"

#include <QStringList>
#include <cstddef>
#include <functional>
#include <optional>

namespace velmorin {

/// Which of the user's profiles a page is about: the chosen one, and the first while none is chosen or the chosen one
/// is gone. Main thread.
class ProfileChoice {
public:
    /// The data must outlive this.
    explicit ProfileChoice(AppData& data) : m_data{data} {}

    /// The names of all profiles.
    QStringList names() const;
    /// The place in the list; absent when there are no profiles.
    std::optional<std::size_t> index() const;
    /// The same for the screens: -1 when there are no profiles.
    int place() const;
    /// Null when there are no profiles. Valid until the profiles change.
    const Profile* profile() const;
    /// Chooses by the place in the list; one that is not there changes nothing.
    void choose(int place);
    void forget() { m_selectedID.reset(); }

    /// Changes the profile in the user's data, which writes it. What leaves it as it was writes nothing, and so does
    /// every change when there are no profiles.
    void change(const std::function<void(Profile&)>& change);

private:
    AppData& m_data;
    std::optional<UUID> m_selectedID;
};

} // namespace velmorin
