#pragma once

#include "app/seams/Cancellable.h"
#include "app/seams/StatusBar.h"
#include "app/seams/StatusItem.h"

#include <QIcon>
#include <QMenu>
#include <QString>
#include <QSystemTrayIcon>
#include <memory>

namespace velmorin {

/// The status item in the tray of a desktop. Trays have no place for a text: it is the tool tip, and the first row of
/// the menu, which cannot be chosen. Main thread.
class TrayStatusItem final : public StatusItem {
public:
    /// `bar` must outlive this.
    TrayStatusItem(StatusBar& bar, QIcon icon, Calls calls);
    TrayStatusItem(const TrayStatusItem&) = delete;
    TrayStatusItem& operator=(const TrayStatusItem&) = delete;
    ~TrayStatusItem() override;

    void setTitle(std::string_view title) override;
    void setDescription(std::string_view description) override;
    void menuChanged() override { rebuildMenu(); }

private:
    void appear();
    void rebuildMenu();
    void refreshToolTip();

    QIcon m_icon;
    Calls m_calls;
    QString m_title;
    QString m_description;
    QMenu m_menu;
    QAction* m_titleRow = nullptr; ///< of the menu; null where there is no title
    bool m_isOpen = false;
    std::unique_ptr<QSystemTrayIcon> m_tray; ///< null as long as the desktop has no bar
    Cancellable m_waiting;
};

} // namespace velmorin
