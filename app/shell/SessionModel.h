#pragma once

#include "app/seams/Cancellable.h"
#include "app/shell/ShellContext.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>
#include <vector>

namespace velmorin {

/// The running session and the overlay, as every screen shows them, and what their buttons do. Nothing is decided here.
/// Main thread.
class SessionModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the engine.")
    Q_PROPERTY(bool isActive READ isActive NOTIFY sessionChanged)
    Q_PROPERTY(Overlay overlay READ overlay NOTIFY overlayChanged)
    /// What the user said the session is for; empty without a session.
    Q_PROPERTY(QString intent READ intent NOTIFY sessionChanged)
    /// Whether the present segment is work; false without a session.
    Q_PROPERTY(bool isWork READ isWork NOTIFY statusChanged)
    Q_PROPERTY(bool isLockedBreak READ isLockedBreak NOTIFY statusChanged)
    /// Lengths of time in words; empty without a session.
    Q_PROPERTY(QString remainingInSegment READ remainingInSegment NOTIFY statusChanged)
    Q_PROPERTY(QString remainingTotal READ remainingTotal NOTIFY statusChanged)
    /// "… of … left" of segment and session; empty without a session.
    Q_PROPERTY(QString segmentAndTotal READ segmentAndTotal NOTIFY statusChanged)
    /// How often the user has come back; empty while that is never.
    Q_PROPERTY(QString returnedSoFar READ returnedSoFar NOTIFY sessionChanged)
    /// What the user has to know about the phone's lock; empty while nothing is wrong.
    Q_PROPERTY(QString phoneProblem READ phoneProblem NOTIFY phoneChanged)
    /// The state of the phone's lock in words; empty while there is nothing to say.
    Q_PROPERTY(QString phoneStatus READ phoneStatus NOTIFY phoneChanged)
    /// The texts of the thoughts that are not done, in their order.
    Q_PROPERTY(QStringList openThoughts READ openThoughts NOTIFY thoughtsChanged)

public:
    /// The cases of OverlayState, in its order.
    enum Overlay { Warning, EmergencyExit, Finished, None, LockedBreak, BackToWork };
    Q_ENUM(Overlay)

    explicit SessionModel(ShellContext& context, QObject* parent = nullptr);

    ShellContext& context() const { return m_context; }

    bool isActive() const;
    Overlay overlay() const;
    QString intent() const;
    bool isWork() const;
    bool isLockedBreak() const;
    QString remainingInSegment() const;
    QString remainingTotal() const;
    QString segmentAndTotal() const;
    QString returnedSoFar() const;
    QString phoneProblem() const;
    QString phoneStatus() const;
    QStringList openThoughts() const;

    Q_INVOKABLE void returnToWork();
    Q_INVOKABLE void beginEmergencyExit();
    Q_INVOKABLE void cancelEmergencyExit();
    Q_INVOKABLE void confirmEmergencyExit(const QString& reason);
    /// Puts the summary of an ended session down.
    Q_INVOKABLE void dismissSummary();
    /// Keeps a thought. One of white space only is none.
    Q_INVOKABLE void addThought(const QString& text);

Q_SIGNALS:
    void sessionChanged();
    void statusChanged();
    void overlayChanged();
    void phoneChanged();
    void thoughtsChanged();

private:
    ShellContext& m_context;
    std::vector<Cancellable> m_watches;
};

/// The state of the phone's lock in words; empty while there is nothing to say.
std::string_view phoneStatusText(LockState state, const AppStrings& strings);

} // namespace velmorin
