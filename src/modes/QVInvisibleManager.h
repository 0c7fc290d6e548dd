#pragma once

#include <Quarvo/QVCloseReason.h>
#include <Quarvo/QVError.h>
#include <Quarvo/QuarvoExport.h>

#include <QObject>

#include <memory>

class QVInvisibleDelegate;
class QVInvisibleManagerPrivate;

/// Verification without a control: the host calls startInsivible() when it wants a verification. Meanwhile a
/// small badge turns in the middle of the active window. If the service requires more, a popup opens in which
/// the user draws.
///
/// Each attempt ends with exactly one of passed(), failed() and closed(). If the manager is destroyed during
/// an attempt, no signal is emitted.
///
/// Use it on the thread of the application object, after that was created. Other calls log a warning and do
/// nothing, except that startInsivible() may emit failed().
///
/// \code
/// connect(&m_verification, &QVInvisibleManager::passed, this, &Login::sendToken);
/// connect(m_button, &QPushButton::clicked, &m_verification, &QVInvisibleManager::startInsivible);
/// \endcode
class QUARVO_EXPORT QVInvisibleManager : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool animation READ animation WRITE setAnimation)
    Q_PROPERTY(QString vid READ vid WRITE setVid)
    Q_PROPERTY(QString scene READ scene WRITE setScene)

public:
    /// Sends no request until startInsivible().
    explicit QVInvisibleManager(QObject *parent = nullptr);
    /// Closes an open popup. If the user has just passed, the delegate still receives the token.
    ~QVInvisibleManager() override;

    /// The delegate; null if there is none.
    [[nodiscard]] QVInvisibleDelegate *delegate() const;
    /// Sets the delegate, which is held weakly: the host keeps the ownership.
    void setDelegate(QVInvisibleDelegate *delegate);

    /// The verification id of this manager. Null, the default, means that of QVSDKManager.
    [[nodiscard]] QString vid() const;
    /// Sets the verification id of this manager, or with null that of QVSDKManager. Takes effect for the next
    /// attempt.
    void setVid(const QString &vid);
    /// The scene of this manager. Null, the default, means that of QVSDKManager.
    [[nodiscard]] QString scene() const;
    /// Sets the scene of this manager, or with null that of QVSDKManager. Takes effect for the next attempt.
    void setScene(const QString &scene);

    /// Whether the badge is shown; true by default.
    [[nodiscard]] bool animation() const;
    /// Shows or hides the badge, from the next start on. With the badge, a user who passes without drawing
    /// sees it for a second, and passed() is emitted after that. Without it, passed() is emitted at once.
    void setAnimation(bool animation);

public Q_SLOTS:
    /// Starts an attempt. If the user has closed a popup after its picture was loaded, that popup is shown
    /// again without a request. If a popup with a picture is on screen, it stays, and its attempt goes on
    /// instead of a new one. While an earlier attempt is still waiting for the service, this starts another
    /// attempt. Before the application object was created it only emits failed() with the code
    /// QVError::CannotBeShown, once the event loop runs. On another thread it does nothing.
    void startInsivible();
    /// Ends all attempts under way, and removes the badge and an open popup.
    void reset();

Q_SIGNALS:
    /// The user has passed; \a token is for the host's own server.
    void passed(const QString &token);
    /// The last token has expired, after the time set by QVSDKManager::setTokenLifetime(). Not emitted after
    /// reset() or after another start.
    void expired();
    /// The service did not answer, or refused. The error's domain is the message to show.
    void failed(const QVError &error);
    /// The attempt ended without a result, for \a reason.
    void closed(QVCloseReason reason);
    /// Something failed inside the popup, which shows the error's domain. The attempt goes on: the user can
    /// try again, or close the popup.
    void popupFailed(const QVError &error);
    /// A popup has opened, since the user has to draw.
    void popupOpened();
    /// The outage service replaces the main one, since that is down or the host has set
    /// QVSDKManager::setOutageOpen().
    void outageStarted();
    /// The user asks for another way, since they cannot do what the picture asks. Popups offer this, by a
    /// text button below the picture, only while the signal is connected. Nothing else happens: the attempt
    /// goes on until the host calls reset().
    ///
    /// \code
    /// connect(&m_verification, &QVInvisibleManager::alternativeRequested, this, [this] {
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
