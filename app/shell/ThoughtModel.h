#pragma once

#include "app/seams/Cancellable.h"
#include "app/shell/ScreenModel.h"

#include <QString>

namespace velmorin {

/// A place to leave a thought. Main thread.
class ThoughtModel : public velmorin::ScreenModel {
    Q_OBJECT
    QML_ELEMENT
    /// Whether a thought was kept a moment ago.
    Q_PROPERTY(bool justSaved READ justSaved NOTIFY justSavedChanged)

public:
    using ScreenModel::ScreenModel;

    bool justSaved() const { return m_justSaved; }

    /// Keeps a thought. False for one of white space only, which is none.
    Q_INVOKABLE bool save(const QString& text);

Q_SIGNALS:
    void justSavedChanged();

protected:
    void begin() override {}

private:
    void setJustSaved(bool justSaved);

    bool m_justSaved = false;
    Cancellable m_reset;
};

} // namespace velmorin
