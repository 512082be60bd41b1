#include "app/platform/qt/QuickCovers.h"

#include "app/platform/qt/QtScreens.h"
#include "app/platform/qt/QuickCoverWindow.h"

#include <QEvent>
#include <QGuiApplication>
#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>
#include <utility>

namespace velmorin {

namespace {

/// A window that nobody closes but its owner.
class Window final : public QQuickWindow {
public:
    /// `made` is called at once when the toolkit has given the window another number, `renewed` when it is shown so.
    Window(std::function<void(QQuickWindow&)> made, std::function<void()> renewed)
        : m_made{std::move(made)}, m_renewed{std::move(renewed)} {}

protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::Close) {
            event->ignore();
            return true;
        }
        if (isVisible() && isMadeAnew(*event)) {
            m_made(*this);
            QMetaObject::invokeMethod(this, m_renewed, Qt::QueuedConnection);
        }
        return QQuickWindow::event(event);
    }

private:
    /// The toolkit has given a window another number, as it may when the screens change.
    static bool isMadeAnew(const QEvent& event) {
        return event.type() == QEvent::PlatformSurface &&
               static_cast<const QPlatformSurfaceEvent&>(event).surfaceEventType() ==
                   QPlatformSurfaceEvent::SurfaceCreated;
    }

    std::function<void(QQuickWindow&)> m_made;
    std::function<void()> m_renewed;
};

} // namespace

QuickCovers::~QuickCovers() {
    // Their content knows what may go right after this.
    for (const auto& window : m_leaving)
        delete window.data();
}

std::unique_ptr<CoverWindow> QuickCovers::make(const Rectangle& frame, const CoverContent& content) {
    auto window =
        std::make_unique<Window>([this](QQuickWindow& made) { prepare(made); }, [this] { shownChanged(nullptr); });
    window->setFlags(flags());
    // Until the first picture is there, and should there be none.
    window->setColor(Qt::black);
    // Nobody sees it, but a screen reader calls the window so.
    window->setTitle(QGuiApplication::applicationDisplayName());
    window->setScreen(screenOf(frame));
    window->setGeometry(toQRect(frame));
    m_content.fill(*window, content);
    window->create();
    prepare(*window);
    return std::make_unique<QuickCoverWindow>(*this, std::move(window));
}

void QuickCovers::order(QuickCoverWindow& window, Ordering ordering) {
    const auto erased = std::erase(m_shown, &window);
    if (ordering == Ordering::out && erased == 0) return;
    if (ordering != Ordering::out) m_shown.push_back(&window);
    shownChanged(ordering == Ordering::key ? &window : nullptr);
}

void QuickCovers::drop(QuickCoverWindow& window) {
    order(window, Ordering::out);
    std::erase_if(m_leaving, [](const auto& leaving) { return leaving.isNull(); });
    m_leaving.emplace_back(&window.window());
    window.window().deleteLater();
}

std::vector<NativeWindow> QuickCovers::shownNumbers() const {
    std::vector<NativeWindow> numbers;
    std::ranges::transform(m_shown, std::back_inserter(numbers),
                           [](const auto* window) { return NativeWindow{window->window().winId()}; });
    return numbers;
}

} // namespace velmorin
