#pragma once

#include <Quarvo/QVError.h>
#include <Quarvo/QuarvoExport.h>

#include <QObject>

#include <memory>

class QVInvisibleDelegate;
class QVInvisibleManagerPrivate;

/// Verification without a control: the host calls startInsivible() when it wants proof. A small
/// badge turns in the middle of the active window meanwhile, and where the service wants more, a
/// popup opens in which the user draws.
///
/// Each attempt ends in exactly one of passed(), failed() and closed(); only the manager's own end
/// spares it.
class QUARVO_EXPORT QVInvisibleManager : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool animation READ animation WRITE setAnimation)

public:
    /// Asks nothing until startInsivible().
    explicit QVInvisibleManager(QObject *parent = nullptr);
    /// Closes an open popup. A token that is about to be reported still reaches a living delegate.
    ~QVInvisibleManager() override;

    /// Who hears what becomes of it; null where nobody does.
    [[nodiscard]] QVInvisibleDelegate *delegate() const;
    /// The delegate stays the host's own and is held weakly.
    void setDelegate(QVInvisibleDelegate *delegate);

    /// Whether the badge is shown; true at first. Set it before a start.
    [[nodiscard]] bool animation() const;
    /// Shows the badge or leaves it out, from the next start on.
    void setAnimation(bool animation);

public Q_SLOTS:
    /// Starts an attempt. A popup that the user closed with its picture loaded comes back without a
    /// request; one that is on screen stays, and with it the attempt that it belongs to. A start
    /// while another is being decided is an attempt of its own.
    void startInsivible();
    /// Removes the badge and an open popup; attempts under way end.
    void reset();

Q_SIGNALS:
    /// The user has passed; \a token is for the host's own server.
    void passed(const QString &token);
    /// The service could not be asked or refused; the error's domain is the message to show.
    void failed(const QVError &error);
    /// The attempt ended without a result: the user closed the popup, the host called reset(),
    /// another attempt took the popup's place, or the host's window went away.
    void closed();
    /// The user has to draw.
    void popupOpened();
    /// The service is down or the host said so, and the outage service asks the user instead.
    void outageStarted();

private:
    friend class QVInvisibleManagerPrivate;
    const std::unique_ptr<QVInvisibleManagerPrivate> d;
};
