#pragma once

#include <Quarvo/QVCloseReason.h>
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
/// Each attempt ends in exactly one of passed(), failed() and closed(). If the manager is destroyed
/// during an attempt, no signal is emitted.
class QUARVO_EXPORT QVInvisibleManager : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool animation READ animation WRITE setAnimation)
    Q_PROPERTY(QString vid READ vid WRITE setVid)
    Q_PROPERTY(QString scene READ scene WRITE setScene)

public:
    /// Asks nothing until startInsivible().
    explicit QVInvisibleManager(QObject *parent = nullptr);
    /// Closes an open popup. A token that is about to be reported still reaches a living delegate.
    ~QVInvisibleManager() override;

    /// Who hears what becomes of it; null where nobody does.
    [[nodiscard]] QVInvisibleDelegate *delegate() const;
    /// The delegate stays the host's own and is held weakly.
    void setDelegate(QVInvisibleDelegate *delegate);

    /// The verification id of this manager; null, as at first, stands for that of QVSDKManager.
    [[nodiscard]] QString vid() const;
    /// Takes effect for the next attempt.
    void setVid(const QString &vid);
    /// The scene of this manager; null, as at first, stands for that of QVSDKManager.
    [[nodiscard]] QString scene() const;
    /// Takes effect for the next attempt.
    void setScene(const QString &scene);

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
    /// The time that QVSDKManager::setTokenLifetime() gives a token is up, and the last one is no longer
    /// good. Not emitted after reset(), nor after another start.
    void expired();
    /// The service could not be asked or refused; the error's domain is the message to show.
    void failed(const QVError &error);
    /// The attempt ended without a result, for \a reason.
    void closed(QVCloseReason reason);
    /// Something failed inside the popup, which shows the error's domain. The attempt goes on: the user
    /// may try again, or close the popup.
    void popupFailed(const QVError &error);
    /// The user has to draw.
    void popupOpened();
    /// The service is down or the host said so, and the outage service asks the user instead.
    void outageStarted();
    /// The user asks for another way, since they cannot do what the picture asks. Only while this is
    /// connected do popups offer it, by a text button below the picture. Nothing else happens: the attempt
    /// goes on until the host calls reset().
    ///
    /// \code
    /// connect(&verification, &QVInvisibleManager::alternativeRequested, this, [this] {
    ///     m_verification.reset();
    ///     sendCodeByMail();
    /// });
    /// \endcode
    void alternativeRequested();

protected:
    void connectNotify(const QMetaMethod &signal) override;
    void disconnectNotify(const QMetaMethod &signal) override;

private:
    friend class QVInvisibleManagerPrivate;
    const std::unique_ptr<QVInvisibleManagerPrivate> d;
};
