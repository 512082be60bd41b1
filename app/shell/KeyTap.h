#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace velmorin {

/// Tells a key that is struck on purpose from one that is held down, perhaps since before the screen came up: it counts
/// when it is let go after one press, without a repetition. Main thread.
class KeyTap : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// Whether the space bar counts besides Return and Enter.
    Q_PROPERTY(bool takesSpace MEMBER m_takesSpace)

public:
    using QObject::QObject;

    /// A key has gone down, or is repeated by the system. True for one that counts, whose event goes no further.
    Q_INVOKABLE bool press(int key, bool isRepeat);
    /// A key was let go. True when that was a stroke on purpose.
    Q_INVOKABLE bool release(int key, bool isRepeat);

private:
    bool counts(int key) const;

    bool m_takesSpace = false;
    int m_down = 0; ///< the key that was pressed once; 0 without one
};

} // namespace velmorin
