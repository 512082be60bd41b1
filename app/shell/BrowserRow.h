#pragma once

#include "app/engine/BrowserResult.h"
#include "app/seams/Lifetime.h"
#include "app/shell/ShellContext.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>
#include <optional>
#include <string_view>

namespace velmorin {

/// An allowed browser: whether it can be read, and how to come there. Main thread.
class BrowserRow : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to the profile editor.")
    Q_PROPERTY(QString checkText READ checkText NOTIFY changed)
    /// What the last check has shown; empty before there was one.
    Q_PROPERTY(QString message READ message NOTIFY changed)
    /// What the button says that begins to set the browser up; empty where nothing has to be.
    Q_PROPERTY(QString setUpText READ setUpText NOTIFY changed)
    /// What the user has to do in the browser, one line each; empty until it is asked for.
    Q_PROPERTY(QList<QString> steps READ steps NOTIFY changed)
    Q_PROPERTY(QString copyAddressText READ copyAddressText NOTIFY changed)
    Q_PROPERTY(QString copyFolderText READ copyFolderText NOTIFY changed)

public:
    /// The context must outlive this.
    BrowserRow(BrowserKind kind, ShellContext& context, QObject* parent);

    BrowserKind kind() const { return m_kind; }
    QString checkText() const;
    QString message() const;
    QString setUpText() const;
    QStringList steps() const;
    QString copyAddressText() const;
    QString copyFolderText() const;

    /// Asks the browser for its tabs, so that the system may ask the user. A second call checks a second time.
    Q_INVOKABLE void check();
    /// Does what can be done from here: tells the browser of this program, brings it up, has the address of the right
    /// page on the clipboard, and says what is left to do.
    Q_INVOKABLE void setUp();
    Q_INVOKABLE void copyAddress();
    Q_INVOKABLE void copyFolder();

    /// Forgets the message and the steps; what a check that still runs shows goes nowhere.
    void reset();

Q_SIGNALS:
    void changed();

private:
    using Message = std::string_view AppStrings::*;

    void show(Message message);

    BrowserKind m_kind;
    ShellContext& m_context;
    Message m_message = nullptr;
    bool m_isBeingSetUp = false;
    bool m_isIntroduced = true;
    std::optional<Lifetime> m_lifetime{std::in_place};
};

} // namespace velmorin
