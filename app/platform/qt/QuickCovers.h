#pragma once

#include "app/platform/qt/QuickContent.h"
#include "app/seams/Cancellable.h"
#include "app/seams/CoverWindow.h"
#include "app/seams/DesktopLayers.h"

#include <QPointer>
#include <QQuickWindow>
#include <vector>

namespace velmorin {

class QuickCoverWindow;

/// Cover windows of Qt Quick, which have a layer of the desktop to themselves. Main thread.
class QuickCovers : public CoverWindowFactory {
public:
    enum class Ordering { front, key, out };

    QuickCovers(QuickContent& content, DesktopLayers& layers) : m_content{content}, m_layers{layers} {}
    QuickCovers(const QuickCovers&) = delete;
    QuickCovers& operator=(const QuickCovers&) = delete;
    ~QuickCovers() override;

    std::unique_ptr<CoverWindow> make(const Rectangle& frame, const CoverContent& content) override;

    /// A window was put on the screen, or taken off it.
    void order(QuickCoverWindow& window, Ordering ordering);
    /// A window goes. What the toolkit has of it goes once its events are over.
    void drop(QuickCoverWindow& window);

protected:
    DesktopLayers& layers() const { return m_layers; }
    /// Those on the screen, in the order in which they came there.
    const std::vector<QuickCoverWindow*>& shown() const { return m_shown; }
    /// The same by their numbers; a window gets a new one when the toolkit makes it anew.
    std::vector<NativeWindow> shownNumbers() const;

    /// The kind of window: its flags, and what else must be said of it before it is shown.
    virtual Qt::WindowFlags flags() const = 0;
    virtual void prepare(QQuickWindow& window) const = 0;
    /// After each change of `shown`; `key` is the window that is to have the keyboard, null where that is as it was.
    virtual void shownChanged(QuickCoverWindow* key) = 0;

private:
    QuickContent& m_content;
    DesktopLayers& m_layers;
    std::vector<QuickCoverWindow*> m_shown;
    std::vector<QPointer<QQuickWindow>> m_leaving;
};

} // namespace velmorin
