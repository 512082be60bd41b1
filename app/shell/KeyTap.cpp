#include "app/shell/KeyTap.h"

namespace velmorin {

bool KeyTap::press(int key, bool isRepeat) {
    if (!counts(key)) return false;
    // A second press with no release between them is a repetition, too.
    m_down = isRepeat || m_down != 0 ? -1 : key;
    return true;
}

bool KeyTap::release(int key, bool isRepeat) {
    if (!counts(key) || isRepeat) return false;
    const bool isTap = m_down == key;
    m_down = 0;
    return isTap;
}

bool KeyTap::counts(int key) const {
    return key == Qt::Key_Return || key == Qt::Key_Enter || (m_takesSpace && key == Qt::Key_Space);
}

} // namespace velmorin
