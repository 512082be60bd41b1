#pragma once

#include "app/seams/Cancellable.h"
#include "app/shell/ScreenModel.h"

#include <optional>

namespace velmorin {

/// A screen's texts that change as time passes: they are worked out anew at a pace of their own while the screen is on
/// display, and whenever the session, its status or the language changes. Main thread.
class TimelineModel : public velmorin::ScreenModel {
    Q_OBJECT
    QML_ANONYMOUS

public:
    using ScreenModel::ScreenModel;

Q_SIGNALS:
    /// Everything was worked out anew.
    void changed();

protected:
    /// Works everything out for this moment. Returns in how many seconds that has to be done again; absent when time
    /// changes nothing more.
    virtual std::optional<double> redraw(Date now) = 0;

    /// Has it worked out now.
    void update();
    void updateIfShown();

    void begin() override;
    void shownChanged() override { update(); }

private:
    Cancellable m_next;
};

} // namespace velmorin
