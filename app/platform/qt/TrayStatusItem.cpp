#include "app/platform/qt/TrayStatusItem.h"

#include <QAction>
#include <utility>

namespace velmorin {

namespace {

QString fromText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A text as a row of a menu, where an ampersand would mark a key.
QString asRow(QString text) {
    return text.replace('&', "&&");
}

} // namespace

TrayStatusItem::TrayStatusItem(StatusBar& bar, QIcon icon, Calls calls)
    : m_icon{std::move(icon)}, m_calls{std::move(calls)} {
    QObject::connect(&m_menu, &QMenu::aboutToShow, &m_menu, [this] {
        m_isOpen = true;
        rebuildMenu();
    });
    QObject::connect(&m_menu, &QMenu::aboutToHide, &m_menu, [this] { m_isOpen = false; });
    // The toolkit decides for one kind of bar when it makes its first icon, and keeps to that. So none is made before
    // there is a bar.
    m_waiting = bar.whenThere([this] { appear(); });
}

TrayStatusItem::~TrayStatusItem() = default;

void TrayStatusItem::setTitle(std::string_view title) {
    const auto text = fromText(title).trimmed();
    if (text == m_title) return;
    const bool hasRow = !m_title.isEmpty();
    m_title = text;
    refreshToolTip();
    if (m_titleRow != nullptr && !m_title.isEmpty() && m_isOpen) m_titleRow->setText(asRow(m_title));
    // There are desktops that show what the menu held when they last read it.
    if (hasRow == m_title.isEmpty()) rebuildMenu();
}

void TrayStatusItem::setDescription(std::string_view description) {
    m_description = fromText(description);
    refreshToolTip();
    rebuildMenu();
}

void TrayStatusItem::appear() {
    m_waiting = {};
    rebuildMenu();
    m_tray = std::make_unique<QSystemTrayIcon>(m_icon);
    m_tray->setContextMenu(&m_menu);
    QObject::connect(m_tray.get(), &QSystemTrayIcon::activated, &m_menu, [this](QSystemTrayIcon::ActivationReason why) {
        if (why == QSystemTrayIcon::Trigger) m_calls.pressed();
    });
    refreshToolTip();
    m_tray->show();
}

void TrayStatusItem::rebuildMenu() {
    Menu menu;
    m_calls.menuNeedsUpdate(menu);
    m_menu.clear();
    m_titleRow = m_title.isEmpty() ? nullptr : m_menu.addAction(asRow(m_title));
    if (m_titleRow != nullptr) m_titleRow->setEnabled(false);
    for (const auto& item : menu.items) {
        if (item.isSeparator) {
            m_menu.addSeparator();
            continue;
        }
        auto* const row = m_menu.addAction(asRow(fromText(item.text)));
        row->setEnabled(item.isEnabled());
        // Later: what is chosen may well change the menu, and with it this row.
        QObject::connect(
            row, &QAction::triggered, &m_menu, [this, action = item.action] { m_calls.chosen(action); },
            Qt::QueuedConnection);
    }
}

void TrayStatusItem::refreshToolTip() {
    if (m_tray) m_tray->setToolTip(m_title.isEmpty() ? m_description : m_description + " " + m_title);
}

} // namespace velmorin
