#pragma once

#include "app/shell/SessionModel.h"

#include <QObject>
#include <QQmlParserStatus>
#include <QtQml/qqmlregistration.h>

namespace velmorin {

/// What a screen makes for itself, so that it lives exactly as long as the screen does. It has nothing under way while
/// the screen is not on display. Main thread.
class ScreenModel : public QObject, public QQmlParserStatus {
    Q_OBJECT
    QML_ANONYMOUS
    Q_INTERFACES(QQmlParserStatus)
    /// What the screen is about. Given once, and must outlive this.
    Q_PROPERTY(velmorin::SessionModel* session READ session WRITE setSession NOTIFY sessionAssigned REQUIRED)
    /// Whether the screen is on display.
    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY isShownChanged)

public:
    explicit ScreenModel(QObject* parent = nullptr) : QObject{parent} {}

    SessionModel* session() const { return m_session; }
    void setSession(SessionModel* session);
    bool isShown() const { return m_isShown; }
    void setShown(bool isShown);

    void classBegin() override {}
    void componentComplete() override;

Q_SIGNALS:
    void sessionAssigned();
    void isShownChanged();

protected:
    ShellContext& context() const { return m_session->context(); }
    const AppStrings& strings() const { return context().appearance.strings(); }
    AppLanguage language() const { return *context().appearance.language(); }
    Date now() const { return context().clock.now(); }
    /// Whether every property has its first value, and with them the session.
    bool isComplete() const { return m_isComplete; }

    /// Every property has its first value now, `isShown` among them.
    virtual void begin() = 0;
    /// The screen has come up or gone, after `begin`.
    virtual void shownChanged() {}

private:
    SessionModel* m_session = nullptr;
    bool m_isShown = false;
    bool m_isComplete = false;
};

} // namespace velmorin
