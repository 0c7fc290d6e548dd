#pragma once

#include <Quarvo/QVClickButtonDelegate.h>
#include <Quarvo/QVCloseReason.h>
#include <Quarvo/QVError.h>
#include <Quarvo/QuarvoExport.h>

#include <QObject>

#include <memory>

class QAbstractButton;
class QVClickButton;
class QVClickManagerDelegate;
class QVClickManagerPrivate;

/// Click verification: creates a QVClickButton on demand and relays its signals.
///
/// Each attempt of the user ends with exactly one of passed(), failed() and closed().
///
/// Use it on the thread of the application object, after that was created. Other calls log a warning and do
/// nothing, except that button() and clickButton() may emit failed().
///
/// \code
/// layout->addWidget(m_verification.clickButton());
/// connect(&m_verification, &QVClickManager::passed, this, &Login::sendToken);
/// \endcode
class QUARVO_EXPORT QVClickManager : public QObject, public QVClickButtonDelegate
{
    Q_OBJECT
    Q_PROPERTY(QString vid READ vid WRITE setVid)
    Q_PROPERTY(QString scene READ scene WRITE setScene)

public:
    /// Does not create the button yet.
    explicit QVClickManager(QObject *parent = nullptr);
    ~QVClickManager() override;

    /// The delegate; null if there is none.
    [[nodiscard]] QVClickManagerDelegate *delegate() const;
    /// Sets the delegate, which is held weakly: the host keeps the ownership.
    void setDelegate(QVClickManagerDelegate *delegate);

    /// The verification id of the button. Null, the default, means that of QVSDKManager.
    [[nodiscard]] QString vid() const;
    /// Sets the verification id of this button, or with null that of QVSDKManager. Takes effect for the next
    /// attempt.
    void setVid(const QString &vid);
    /// The scene of the button. Null, the default, means that of QVSDKManager.
    [[nodiscard]] QString scene() const;
    /// Sets the scene of this button, or with null that of QVSDKManager. Takes effect for the next attempt.
    void setScene(const QString &scene);

    /// The button, which the first call creates. The manager owns it until it is given a parent. Null if the
    /// application object is not a QApplication or does not exist yet; then failed() is emitted with the code
    /// QVError::CannotBeShown once the event loop runs. Null, without a signal, on another thread.
    [[nodiscard]] QVClickButton *button();
    /// The same button, for hosts that only place it in a layout.
    [[nodiscard]] QAbstractButton *clickButton();

    /// \cond
    void clickButtonVerifyPassedWithToken(const QString &token) override;
    /// \endcond

public Q_SLOTS:
    /// Closes an open popup and makes the button ready for a new attempt.
    void reset();

Q_SIGNALS:
    /// The user has passed; \a token is for the host's own server.
    void passed(const QString &token);
    /// The last token has expired, after the time set by QVSDKManager::setTokenLifetime(). The button is
    /// ready again. Not emitted after reset().
    void expired();
    /// The service did not answer, or refused. The button shows the error's domain.
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
    /// connect(&m_verification, &QVClickManager::alternativeRequested, this, [this] {
    ///     m_verification.reset();
    ///     sendCodeByMail();
    /// });
    /// \endcode
    void alternativeRequested();

protected:
    void connectNotify(const QMetaMethod &signal) override;
    void disconnectNotify(const QMetaMethod &signal) override;

private:
    friend class QVClickManagerPrivate;
    const std::unique_ptr<QVClickManagerPrivate> d;
};
